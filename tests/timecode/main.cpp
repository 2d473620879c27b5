#include <moxui/testing/Main.h>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  return moxui::testing::Main(argc, argv, MOX_TEST_DATA_DIR "/goldens", [](int& count, char** values) {
    ::testing::InitGoogleMock(&count, values);
    return RUN_ALL_TESTS();
  });
}
