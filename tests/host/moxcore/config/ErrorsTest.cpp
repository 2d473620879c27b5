#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>

#include <gtest/gtest.h>

#include <string>

namespace moxcore::config {
namespace {

struct Named {};

TEST(Errors, CarryTheTextWithItsValuesAndThePlace) {
  try {
    ThrowError(ErrorLevel::kWarning, "some.cpp", 12,
               "$$$/a/b=Row @0 of @1 has @0 cells, @2#{comment} told by @0", true, 7, std::string("table"));
    FAIL();
  } catch (mox_exception const& error) {
    EXPECT_STREQ(error.what(), "Row 7 of table has 7 cells, @2");
    EXPECT_EQ(error.GetLevel(), ErrorLevel::kWarning);
    EXPECT_EQ(error.GetFile(), "some.cpp");
    EXPECT_EQ(error.GetLine(), 12);
    EXPECT_TRUE(error.ShowToUser());
    EXPECT_EQ(error.GetCode(), "$$$/a/b=Row @0 of @1 has @0 cells, @2#{comment} told by @0");
  }
}

TEST(Errors, KeepATextWithoutAHeadAsItStands) {
  try {
    ThrowError(ErrorLevel::kError, nullptr, 0, "plain = text", false);
    FAIL();
  } catch (mox_exception const& error) {
    EXPECT_STREQ(error.what(), "plain = text");
    EXPECT_EQ(error.GetFile(), "");
  }
}

TEST(Errors, NameTheTypeOfANullPointer) {
  try {
    DoThrowNullPtrException("moxui::ui::UI_Node");
    FAIL();
  } catch (mox_exception const& error) {
    EXPECT_STREQ(error.what(), "A null pointer of type moxui::ui::UI_Node was used.");
  }
}

TEST(TypeName, IsWrittenAsInSource) {
  EXPECT_EQ(debug::GetTypeName(typeid(mox_exception)), "moxcore::config::mox_exception");
  EXPECT_EQ(debug::GetTypeName(typeid(int)), "int");
  EXPECT_NE(debug::GetTypeName(typeid(Named)).find("Named"), Utf8String::npos);
}

}  // namespace
}  // namespace moxcore::config
