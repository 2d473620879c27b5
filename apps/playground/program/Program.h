#pragma once

namespace playground {

// Codes that the program ends with.
inline constexpr int kAllWentWell = 0;
inline constexpr int kFileFailed = 1;     // a file couldn't be opened or written
inline constexpr int kNotUnderstood = 2;  // the command line

// All of the program: reads the command line, then does what it asks for. Gives the program's code.
int RunProgram(int argc, char** argv);

}  // namespace playground
