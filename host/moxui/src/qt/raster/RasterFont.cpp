#include "qt/raster/RasterFont.h"

#include "qt/raster/FiniteValues.h"
#include "qt/raster/RasterTextLayout.h"

#include <moxui/platform/Fonts.h>
#include <moxui/scriber/FontNames.h>

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QTextLayout>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace moxui::qt {

namespace {

constexpr std::size_t kMostTexts = 4096;   // remembered for each font
constexpr std::size_t kLongestText = 256;  // UTF-16 units, of what is remembered beyond the last
constexpr double kTabWidth = 32;
constexpr double kEndless = 1e7;
constexpr std::size_t kMostFonts = 256;
constexpr float kLargestSize = 1000.0f;

// What fonts are measured on: anything of the resolution that they are drawn at.
QImage const& MeasuringDevice() {
  static QImage const device = [] {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setDotsPerMeterX(kDotsPerMetre);
    image.setDotsPerMeterY(kDotsPerMetre);
    return image;
  }();
  return device;
}

QString StringOf(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QFont PlainFont(QString const& family, float size) {
  QFont font(family);
  font.setPointSizeF(static_cast<qreal>(size));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::NoSubpixelAntialias);
  return font;
}

}  // namespace

QTextOption TextOptionFor(double scale) {
  QTextOption option;
  option.setTabStopDistance(kTabWidth * scale);
  option.setFlags(QTextOption::IncludeTrailingSpaces);
  return option;
}

RasterFont::RasterFont(QFont const& font, float size) : mFont(font), mSize(size) {
  QFontMetricsF const metrics(mFont, &MeasuringDevice());
  mAscent = static_cast<float>(metrics.ascent());
  mDescent = static_cast<float>(metrics.descent());
}

RasterFont::Known& RasterFont::Find(std::u16string_view text) const {
  if (text.size() > kLongestText) {
    if (text != mLongText) {
      mLongText = text;
      mOfLongText = {};
    }
    return mOfLongText;
  }
  if (auto const known = mKnown.find(text); known != mKnown.end()) {
    return known->second;
  }
  if (mKnown.size() >= kMostTexts) {
    mKnown.clear();
  }
  return mKnown[std::u16string(text)];
}

float RasterFont::GetWidth(std::u16string_view text) const {
  if (text.empty()) {
    return 0.0f;
  }
  Known& known = Find(text);
  if (known.width < 0) {
    QFontMetricsF const metrics(mFont, &MeasuringDevice());
    known.width = static_cast<float>(metrics.horizontalAdvance(StringOf(text)));
  }
  return known.width;
}

QList<QGlyphRun> const& RasterFont::GetGlyphs(std::u16string_view text, double scale) const {
  Known& known = Find(text);
  if (known.scale != scale) {
    QTextLayout layout(StringOf(text), ForScale(scale));
    layout.setTextOption(TextOptionFor(scale));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
      line.setLineWidth(kEndless);
      line.setPosition(QPointF(0, -line.ascent()));
    }
    layout.endLayout();
    known.glyphs = layout.glyphRuns();
    known.scale = scale;
  }
  return known.glyphs;
}

scriber::TextLayoutP RasterFont::NewTextLayout(std::u16string_view text, float width,
                                               scriber::TextAlignment alignment) const {
  return moxcore::utility::MakeIntrusive<RasterTextLayout>(QFont(mFont, &MeasuringDevice()), mAscent,
                                                           mDescent, text, static_cast<float>(Finite(width)),
                                                           alignment);
}

QFont const& RasterFont::ForScale(double scale) const {
  if (mScaledBy != scale) {
    mScaled = QFont(mFont, &MeasuringDevice());
    mScaled.setPointSizeF(static_cast<double>(mSize) * scale);
    mScaledBy = scale;
  }
  return mScaled;
}

scriber::FontP FindFont(std::string_view name, std::string_view style, float size) {
  float const wanted = std::isnan(size) ? 1.0f : std::clamp(size, 1.0f, kLargestSize);
  static std::map<std::tuple<std::string, std::string, float>, scriber::FontP, std::less<>> fonts;
  auto key = std::tuple(std::string(name), std::string(style), wanted);
  if (auto const known = fonts.find(key); known != fonts.end()) {
    return known->second;
  }
  if (!platform::FontsAvailable()) {
    return nullptr;
  }
  moxcore::Utf8String const family = utils::ValidateFontName(name);
  QFont font = PlainFont(QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size())), wanted);
  font.setBold(style.find("Bold") != std::string_view::npos);
  font.setItalic(style.find("Italic") != std::string_view::npos);
  auto made = moxcore::utility::MakeIntrusive<RasterFont>(font, wanted);
  if (fonts.size() >= kMostFonts) {
    fonts.clear();
  }
  fonts.emplace(std::move(key), made);
  return made;
}

}  // namespace moxui::qt

namespace moxui::utils {

moxcore::Utf8String ValidateFontName(std::string_view name) {
  auto const exists = [](std::string_view family) {
    return !family.empty() &&
           QFontDatabase::hasFamily(QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size())));
  };
  if (QCoreApplication::instance() == nullptr) {
    return moxcore::Utf8String(kHouseFontName);
  }
  if (exists(name)) {
    return moxcore::Utf8String(name);
  }
  if (exists(kHouseFontName) || QFontDatabase::families().isEmpty()) {
    return moxcore::Utf8String(kHouseFontName);
  }
  QByteArray const platform = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family().toUtf8();
  return moxcore::Utf8String(platform.constData(), static_cast<std::size_t>(platform.size()));
}

}  // namespace moxui::utils
