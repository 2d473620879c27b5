#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace playground {

// One run of the real program, to its end.
struct ProgramRun {
  enum class Display { kOffscreen, kNone };

  // Settings and all else that is kept between runs go below `home`. `variables` ("NAME=value") are added to
  // the environment.
  ProgramRun(std::vector<std::string> const& arguments, std::filesystem::path const& home,
             Display display = Display::kOffscreen, std::vector<std::string> const& variables = {});

  int code = -1;
  std::string output;
  std::string errors;
};

}  // namespace playground
