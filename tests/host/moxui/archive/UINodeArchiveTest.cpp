#include "MadeUpArchive.h"

#include <moxcore/config/Errors.h>
#include <moxui/archive/UINodeArchive.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace moxui::archive {
namespace {

using testing::DocumentOf;
using ::testing::HasSubstr;
using testing::List;
using testing::Narrow;
using testing::Pair;
using testing::Real;
using testing::Signed;
using ::testing::Test;
using testing::Unsigned;
using testing::Wide;

std::string ErrorOf(std::string const& document) {
  try {
    ReadArchive(document);
  } catch (moxcore::config::mox_exception const& error) {
    return error.what();
  }
  return "no error";
}

Value RootOf(std::string const& pairs) {
  return *ReadArchive(DocumentOf(List(pairs))).Find("root");
}

TEST(UINodeArchive, ReadsEveryKindOfValue) {
  Value const root = RootOf(Pair("a", Signed("-2147483648")) + Pair("b", Unsigned(" 4294967295 ")) +
                            Pair("c", Real("0.1")) + Pair("d", "<double>-1.79769e+308</double>") +
                            Pair("e", "<true/>") + Pair("f", "<false></false>") +
                            Pair("g", Narrow("Number1")) + Pair("h", Wide(" a &lt;b&gt; &amp; \n\xc3\xa9 ")) +
                            Pair("i",
                                 "<array><array.type>ustring</array.type><ustring>x</ustring>"
                                 "<ustring></ustring></array>") +
                            Pair("j", List(Pair("k", Signed("7")))));
  EXPECT_EQ(*root.Find("a"), Value::OfSigned(-2147483647 - 1));
  EXPECT_EQ(*root.Find("b"), Value::OfUnsigned(4294967295u));
  EXPECT_EQ(*root.Find("c"), Value::OfFloat(0.1f));
  EXPECT_EQ(*root.Find("d"), Value::OfDouble(-1.79769e+308));
  EXPECT_EQ(*root.Find("e"), Value::OfBoolean(true));
  EXPECT_EQ(*root.Find("f"), Value::OfBoolean(false));
  EXPECT_EQ(*root.Find("g"), Value::OfNarrowText("Number1"));
  EXPECT_EQ(*root.Find("h"), Value::OfWideText(" a <b> & \n\xc3\xa9 "));
  EXPECT_EQ(*root.Find("i"),
            Value::OfArray(ValueKind::kWideText, {Value::OfWideText("x"), Value::OfWideText("")}));
  EXPECT_EQ(root.Find("j")->Find("k")->GetInteger(), 7);
  EXPECT_EQ(root.Find("none"), nullptr);
}

TEST(UINodeArchive, ValuesKnowTheirLines) {
  Value const archive = ReadArchive(
      "<prop.map version='4'>\n<prop.list>\n"
      "<prop.pair><key>UINodeArchive</key><int type='unsigned' size='32'>1</int></prop.pair>\n"
      "<prop.pair><key>root</key>\n\n<prop.list></prop.list></prop.pair>\n</prop.list></prop.map>");
  EXPECT_EQ(archive.GetLine(), 2);
  EXPECT_EQ(archive.Find("UINodeArchive")->GetLine(), 3);
  EXPECT_EQ(archive.Find("root")->GetLine(), 6);
}

TEST(UINodeArchive, ReadsOtherEncodingsThatTheDocumentNames) {
  std::string document = DocumentOf(List(Pair("a", Wide("caf\xe9"))));
  document.replace(document.find("UTF-8"), 5, "ISO-8859-1");
  EXPECT_EQ(ReadArchive(document).Find("root")->Find("a")->GetText(), "caf\xc3\xa9");
}

TEST(UINodeArchive, WhatIsWrittenReadsAsTheSame) {
  Value const root = Value::OfObject(
      {{"text", Value::OfWideText("a & b < c > \xf0\x9f\x8e\xb5 \r\n\t'\"")},
       {"float", Value::OfFloat(0.1f)},
       {"double", Value::OfDouble(0.1)},
       {"large", Value::OfDouble(1.7976931348623157e308)},
       {"small", Value::OfFloat(1.1754944e-38f)},
       {"signed", Value::OfSigned(-1)},
       {"unsigned", Value::OfUnsigned(4000000000u)},
       {"yes", Value::OfBoolean(true)},
       {"a & b", Value::OfNarrowText("")},
       {"none", Value::OfObject({})},
       {"numbers", Value::OfArray(ValueKind::kUnsigned, {})},
       {"lists", Value::OfArray(ValueKind::kObject, {Value::OfObject({{"x", Value::OfBoolean(false)}})})}});
  Value const archive = Value::OfObject({{"UINodeArchive", Value::OfUnsigned(1)}, {"root", root}});
  EXPECT_EQ(ReadArchive(WriteArchive(archive)), archive);
}

TEST(UINodeArchive, WhatNoDocumentCanHoldIsNotWritten) {
  auto const errorOf = [](Value value, moxcore::Utf8String key = "a") -> std::string {
    try {
      WriteArchive(Value::OfObject({{std::move(key), std::move(value)}}));
    } catch (moxcore::config::mox_exception const& error) {
      return error.what();
    }
    return "no error";
  };
  for (char const* const text :
       {"sound\x01", "sound\xff", "sound\xc3", "sound\xed\xa0\x80", "sound\xef\xbf\xbf"}) {
    EXPECT_THAT(errorOf(Value::OfWideText(text)), HasSubstr("“sound”"));
    EXPECT_THAT(errorOf(Value::OfNarrowText(text)), HasSubstr("“sound”"));
    EXPECT_THAT(errorOf(Value(), text), HasSubstr("“sound”"));
  }
  EXPECT_EQ(errorOf(Value::OfWideText("\t\r\n\x7f\xef\xbf\xbd")), "no error");
  EXPECT_THAT(errorOf(Value::OfDouble(std::numeric_limits<double>::quiet_NaN())), HasSubstr("“nan”"));
  EXPECT_THAT(errorOf(Value::OfFloat(-std::numeric_limits<float>::infinity())), HasSubstr("“inf”"));
}

std::string Nested(int levels) {
  std::string document = "<prop.map version='4'>";
  for (int i = 0; i < levels; ++i) {
    document += "<prop.list><prop.pair><key>a</key>";
  }
  return document;
}

TEST(UINodeArchive, ADocumentTypeIsRefusedAndNothingOfItExpanded) {
  EXPECT_THAT(ErrorOf("<?xml version='1.0'?>\n<!DOCTYPE prop.map>\n<prop.map version='4'/>"),
              ::testing::AllOf(HasSubstr("line 2"), HasSubstr("document type")));
  std::string bomb = "<!DOCTYPE bomb [\n<!ENTITY a0 \"ha\">\n";
  for (int i = 1; i < 40; ++i) {
    std::string const before = "&a" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">\n";
  }
  EXPECT_THAT(ErrorOf(bomb + "]>\n<prop.map version='4'>&a39;</prop.map>"), HasSubstr("line 1"));
  EXPECT_THAT(ErrorOf("<prop.map version='4'>&other;</prop.map>"), HasSubstr("line 1"));
}

TEST(UINodeArchive, AttributesLevelsElementsAndBytesAreBounded) {
  std::string attributes = "<prop.map version='4'";
  for (int i = 0; i < 100'000; ++i) {
    attributes += " a" + std::to_string(i) + "='1'";
  }
  EXPECT_THAT(ErrorOf(attributes + "/>"), HasSubstr("line 1"));
  EXPECT_THAT(ErrorOf(Nested(100'000)), HasSubstr("nested too deeply"));
  EXPECT_THAT(ErrorOf(std::string(kMaximalArchiveBytes + 1, ' ')), HasSubstr("too large"));
  std::string elements = "<array><array.type>bool</array.type>";
  for (std::size_t i = 0; i < kMaximalArchiveElements; ++i) {
    elements += "<true/>\n";
  }
  EXPECT_THAT(ErrorOf(DocumentOf(List(Pair("a", elements + "</array>")))), HasSubstr("too many elements"));
}

struct BadCase {
  std::string name;
  std::string document;
  std::string line;
  std::string part;
};

class BadArchive : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadArchive, IsToldOfWithItsLine) {
  std::string const error = ErrorOf(GetParam().document);
  EXPECT_THAT(error, HasSubstr("line " + GetParam().line + ":"));
  EXPECT_THAT(error, HasSubstr(GetParam().part));
}

// The document's first value stands on line 6.
std::string WithValue(std::string const& value) {
  return DocumentOf(List(Pair("a", value)));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadArchive,
    ::testing::Values(
        BadCase{"Empty", "", "1", "XML"},
        BadCase{"Binary", std::string("\x7f\x45\x4c\x46\0\0", 6), "1", "XML"},
        BadCase{"CutShort", "<prop.map version='4'>\n<prop.list>\n", "3", "XML"},
        BadCase{"BrokenUTF8", "<prop.map version='4'>\n\xff\xfe</prop.map>", "2", "XML"},
        BadCase{"OtherVocabulary", "<html/>", "1", "html"},
        BadCase{"OtherVersion", "\n<prop.map version='5'/>", "2", "version"},
        BadCase{"NoVersion", "<prop.map/>", "1", "version"},
        BadCase{"OtherAttribute", "<prop.map version='4' a='b'/>", "1", "“a”"},
        BadCase{"NoList", "<prop.map version='4'/>", "1", "no view archive"},
        BadCase{"TwoLists", "<prop.map version='4'><prop.list/>\n<prop.list/></prop.map>", "2", "prop.list"},
        BadCase{"NoFormat", "<prop.map version='4'>" + List(Pair("root", List(""))) + "</prop.map>", "1",
                "no view archive"},
        BadCase{"OtherFormat",
                "<prop.map version='4'>" +
                    List(Pair("UINodeArchive", Unsigned("2")) + Pair("root", List(""))) + "</prop.map>",
                "1", "no view archive"},
        BadCase{"NoRoot",
                "<prop.map version='4'>" + List(Pair("UINodeArchive", Unsigned("1"))) + "</prop.map>", "1",
                "no root"},
        BadCase{"RootIsNoObject", DocumentOf(Wide("root")), "2", "no root"},
        BadCase{"UnknownElement", WithValue("<date>1</date>"), "6", "“date”"},
        BadCase{"ValueInAValue", WithValue("<ustring>\n<true/></ustring>"), "7", "“true”"},
        BadCase{"TextInAList", WithValue("<prop.list>\n\nwords</prop.list>"), "8", "“words”"},
        BadCase{"TextInATruth", WithValue("<true>yes</true>"), "6", "“yes”"},
        BadCase{"KeyWithoutValue", DocumentOf(List("<prop.pair><key>a</key></prop.pair>")), "6", "pair"},
        BadCase{"ValueWithoutKey", DocumentOf(List("<prop.pair><true/></prop.pair>")), "6", "“true”"},
        BadCase{"TwoValues", WithValue("<true/><true/>"), "6", "“true”"},
        BadCase{"SameKeyTwice",
                DocumentOf(List(Pair("a", "<true/>") + Pair("b", "<true/>") + Pair("a", "<true/>"))), "8",
                "“a”"},
        BadCase{"NotANumber", WithValue(Real("nan")), "6", "“nan”"},
        BadCase{"Infinity", WithValue("<double>inf</double>"), "6", "“inf”"},
        BadCase{"Overflow", WithValue("<double>1e999</double>"), "6", "1e999"},
        BadCase{"FloatOverflow", WithValue(Real("1e39")), "6", "1e39"},
        BadCase{"Words", WithValue(Signed("12 apples")), "6", "12 apples"},
        BadCase{"Nothing", WithValue(Signed("")), "6", "number"},
        BadCase{"TooLargeForSigned", WithValue(Signed("2147483648")), "6", "2147483648"},
        BadCase{"NegativeUnsigned", WithValue(Unsigned("-1")), "6", "-1"},
        BadCase{"OtherSize", WithValue("<int type='signed' size='64'>1</int>"), "6", "“size”"},
        BadCase{"OtherType", WithValue("<int type='complex' size='32'>1</int>"), "6", "“type”"},
        BadCase{"ArrayWithoutType", WithValue("<array><true/></array>"), "6", "“true”"},
        BadCase{"EmptyArrayWithoutType", WithValue("<array></array>"), "6", "“array”"},
        BadCase{"ArrayOfUnknownType", WithValue("<array><array.type>date</array.type></array>"), "6",
                "“date”"},
        BadCase{"ArrayOfOtherType",
                WithValue("<array><array.type>bool</array.type><true/>\n<string>a</string></array>"), "7",
                "type"}),
    [](::testing::TestParamInfo<BadCase> const& one) { return one.param.name; });

}  // namespace
}  // namespace moxui::archive
