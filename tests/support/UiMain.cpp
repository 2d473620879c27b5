#include "support/Folders.h"

#include <moxui/testing/Main.h>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  return moxui::testing::Main(argc, argv, tests::GoldenFolder(), [](int& count, char** values) {
    ::testing::InitGoogleMock(&count, values);
    return RUN_ALL_TESTS();
  });
}
