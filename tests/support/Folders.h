#pragma once

#include <string>

namespace tests {

// The folders a test may read, without a slash at their end. Asked for at run time, so that the objects of
// tests are the same wherever the sources lie, and a compiler cache can share them.
std::string SourceFolder();
std::string BuildFolder();
// That of the tests' sources.
std::string TestFolder();
std::string GoldenFolder();
// The path of a program that was built with the tests.
std::string ProgramPath(const std::string& name);

}  // namespace tests
