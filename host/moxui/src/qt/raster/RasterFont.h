#pragma once

#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ScriberTypes.h>

#include <QtCore/QList>
#include <QtGui/QFont>
#include <QtGui/QGlyphRun>
#include <QtGui/QImage>
#include <QtGui/QTextOption>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace moxui::qt {

/// Fonts are measured and drawn at 72 dots to the inch, where a point is a pixel and sizes may have
/// fractions.
inline constexpr int kDotsPerMetre = 2835;

inline void PrepareTarget(QImage& image) {
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);
}

/// How the lines of a text are set at so many device pixels to the logical pixel.
QTextOption TextOptionFor(double scale);

/// A font of the platform. What it measures it remembers, so fonts are shared by name, style and size.
class RasterFont final : public scriber::FontInterface {
 public:
  RasterFont(QFont const& font, float size);

  float GetAscent() const override { return mAscent; }
  float GetDescent() const override { return mDescent; }
  float GetWidth(std::u16string_view text) const override;
  float GetSize() const override { return mSize; }
  scriber::TextLayoutP NewTextLayout(std::u16string_view text, float width,
                                     scriber::TextAlignment alignment) const override;

  /// The font for drawing at so many device pixels to the logical pixel.
  QFont const& ForScale(double scale) const;
  /// The glyphs of one line of text at a scale, around a baseline that begins at the origin.
  QList<QGlyphRun> const& GetGlyphs(std::u16string_view text, double scale) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>()(text); }
  };
  struct Known {
    float width = -1;  // in logical pixels; below 0 while not yet asked for
    double scale = 0;  // of the glyphs
    QList<QGlyphRun> glyphs;
  };
  Known& Find(std::u16string_view text) const;

  QFont mFont;
  float mSize;
  float mAscent = 0;
  float mDescent = 0;
  mutable std::unordered_map<std::u16string, Known, Hash, std::equal_to<>> mKnown;
  mutable std::u16string mLongText;  // the last of the texts that are too long to be remembered
  mutable Known mOfLongText;
  mutable QFont mScaled;
  mutable double mScaledBy = 0;
};

/// The one font object of a name, style and size; null when no font is installed.
scriber::FontP FindFont(std::string_view name, std::string_view style, float size);

}  // namespace moxui::qt
