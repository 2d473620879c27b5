#pragma once

#include <string>

namespace moxui::testing {

/// Runs a test framework's tests; gives the exit code.
using TestRunner = int (*)(int& argc, char** argv);

/// The main function of a test program that paints: works without a screen, with fonts pinned, makes the
/// platform's application and runs the tests. Goldens are looked for in `goldenFolder`.
///
///   int main(int argc, char** argv) {
///     return moxui::testing::Main(argc, argv, MOX_TEST_DATA_DIR "/goldens", [](int& count, char** values) {
///       ::testing::InitGoogleMock(&count, values);
///       return RUN_ALL_TESTS();
///     });
///   }
int Main(int argc, char** argv, std::string const& goldenFolder, TestRunner runTests);

}  // namespace moxui::testing
