#include "playground/ProgramRun.h"

#include "support/Folders.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace playground {
namespace {

std::string Quoted(std::string const& text) {
  std::string quoted = "'";
  for (char const c : text) {
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return quoted + "'";
}

std::string Contents(std::filesystem::path const& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

ProgramRun::ProgramRun(std::vector<std::string> const& arguments, std::filesystem::path const& home,
                       Display display, std::vector<std::string> const& variables) {
  std::filesystem::path const outputPath = home / "output.txt";
  std::filesystem::path const errorsPath = home / "errors.txt";
  std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u MOX_PRESETS_DIR ";
  command += display == Display::kOffscreen ? "QT_QPA_PLATFORM=offscreen " : "-u QT_QPA_PLATFORM ";
  command += "HOME=" + Quoted(home.string()) + " XDG_CONFIG_HOME=" + Quoted((home / "config").string()) +
             " XDG_DATA_HOME=" + Quoted((home / "data").string()) + " ";
  for (std::string const& variable : variables) {
    command += Quoted(variable) + " ";
  }
  command += Quoted(tests::ProgramPath("playground"));
  for (std::string const& argument : arguments) {
    command += " " + Quoted(argument);
  }
  command += " >" + Quoted(outputPath.string()) + " 2>" + Quoted(errorsPath.string());
  int const status = std::system(command.c_str());
  code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  output = Contents(outputPath);
  errors = Contents(errorsPath);
}

}  // namespace playground
