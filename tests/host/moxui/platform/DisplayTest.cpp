#include "support/ScratchFolder.h"

#include <moxui/platform/Display.h>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>

namespace moxui {
namespace {

namespace fs = std::filesystem;
using platform::DisplayEnvironment;
using platform::HasDisplay;

class Display : public ::testing::Test {
 protected:
  Display() {
    fs::create_directory(folder.Path() / "none");
    fs::create_directory(folder.Path() / "plugins");
    folder.Write("plugins/libqoffscreen.so", "");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string const path = folder / "wayland-7";
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    mSocket = socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(mSocket, reinterpret_cast<sockaddr const*>(&address), sizeof(address)), 0);
    environment.pluginFolders = {folder / "missing", folder / "none", folder / "plugins"};
    environment.runtimeDirectory = folder.Path().string();
  }
  ~Display() override { close(mSocket); }
  void InstallWayland() { folder.Write("plugins/libqwayland-generic.so", ""); }

  tests::ScratchFolder folder;
  DisplayEnvironment environment;

 private:
  int mSocket = -1;
};

TEST_F(Display, IsMissingWhereTheEnvironmentNamesNone) {
  InstallWayland();
  EXPECT_FALSE(HasDisplay({}));
  EXPECT_FALSE(HasDisplay(environment));
}

TEST_F(Display, IsThereWhereAPlatformOrAnXDisplayIsNamed) {
  DisplayEnvironment byName;
  byName.platform = "offscreen";
  EXPECT_TRUE(HasDisplay(byName));
  environment.xDisplay = ":0";
  EXPECT_TRUE(HasDisplay(environment));
}

TEST_F(Display, OfWaylandNeedsAPluginThatSpeaksToIt) {
  environment.waylandDisplay = "wayland-7";
  EXPECT_FALSE(HasDisplay(environment));
  InstallWayland();
  EXPECT_TRUE(HasDisplay(environment));
  environment.pluginFolders.pop_back();
  EXPECT_FALSE(HasDisplay(environment));
}

TEST_F(Display, OfWaylandNeedsItsSocket) {
  InstallWayland();
  environment.waylandDisplay = "wayland-8";
  EXPECT_FALSE(HasDisplay(environment));
  environment.waylandDisplay = "plugins";
  EXPECT_FALSE(HasDisplay(environment)) << "a folder is no socket";
}

TEST_F(Display, OfWaylandMayBeNamedByItsPath) {
  InstallWayland();
  environment.waylandDisplay = folder / "wayland-7";
  EXPECT_TRUE(HasDisplay(environment));
  environment.runtimeDirectory.clear();
  EXPECT_TRUE(HasDisplay(environment));
  environment.waylandDisplay = "wayland-7";
  EXPECT_FALSE(HasDisplay(environment)) << "a name is one below the runtime directory";
}

TEST_F(Display, WithoutWaylandsPluginIsThatOfX) {
  environment.waylandDisplay = "wayland-7";
  environment.xDisplay = ":0";
  EXPECT_TRUE(HasDisplay(environment));
}

TEST(DisplayOfTheProcess, NamesThePlatformAndTheFoldersOfPlugins) {
  // Tests run off any screen.
  DisplayEnvironment const environment = DisplayEnvironment::OfProcess();
  EXPECT_EQ(environment.platform, "offscreen");
  bool found = false;
  for (std::string const& folder : environment.pluginFolders) {
    found = found || fs::exists(fs::path(folder) / "libqoffscreen.so");
  }
  EXPECT_TRUE(found) << "the plugin that these tests run with is in none of the folders";
}

}  // namespace
}  // namespace moxui
