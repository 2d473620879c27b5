// How a timecode field looks.
#include "audio/SaturatingConversion.h"

#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RoundedRect.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/skins/ThemeFont.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxmediaui {

namespace {

namespace utilities = moxui::skins::utilities;
using moxui::ui::FontIndex;
using moxui::ui::RectSpace::kOwn;

constexpr float kDrawnTextPoints = 12.0f;
constexpr float kLargeTextPoints = 15.0f;
constexpr float kTextLeft = 2.0f;
constexpr float kBaselineAboveBottom = 7.0f;
constexpr int kSymbolGap = 3;
constexpr float kDisabledTextAlpha = 0.3f;

// As stock controls have it: a gap of 1 pixel, then a ring of 2.
constexpr float kRingMiddle = 2.0f;
constexpr float kRingThickness = 2.0f;
constexpr float kRingReach = kRingMiddle + kRingThickness / 2;

int SaturatingAdd(int a, int b) {
  return SaturateToInt(std::int64_t{a} + b);
}

/// By how much a symbol narrows the edit. Offsets below zero count from the symbol's middle.
int SymbolDistance(int symbolWidth, int offset) {
  return offset < 0 ? SaturateToInt(std::int64_t{symbolWidth / 2} + symbolWidth + offset)
                    : SaturateToInt(std::int64_t{symbolWidth} + kSymbolGap + offset);
}

}  // namespace

// Text and symbol

bool UI_HotTimecodeControl::HasFocus() const {
  return mTextEdit->UI_HasKeyboardFocus(false);
}

void UI_HotTimecodeControl::SetTextSize(TextSize size, float points) {
  mTextSize = size;
  if (points == 0.0f) {
    points = size == TextSize::kToolkit ? moxui::ui::GetFontSize(FontIndex::kText) : kLargeTextPoints;
  }
  mFontSize = points;
  mTextEdit->SetFont(moxui::controls::OS_EditText::GetDefaultFontName(), mFontSize,
                     size == TextSize::kLargeBold ? "Bold" : "");
}

void UI_HotTimecodeControl::SetTextAlignment(TextAlignment alignment, bool invalidate) {
  mTextEdit->SetAlignment(alignment);
  InvalidateIf(invalidate);
}

void UI_HotTimecodeControl::SetSymbol(IntrusivePtr<ImageInterface> image, bool onLeft) {
  mHasSymbol = image != nullptr;
  if (!mHasSymbol) {
    return;
  }
  mSymbol = std::move(image);
  mSymbolWidth = TruncateToInt(mSymbol->GetWidth());
  mSymbolHeight = TruncateToInt(mSymbol->GetHeight());
  if (mSymbolWidth < 2 || mSymbolHeight < 2) {
    mSymbolWidth = 1;
    mSymbolHeight = 1;
  }
  mSymbolOnLeft = onLeft;
  // On the right the offset is added to what earlier calls left.
  mTextInset =
      SaturatingAdd(onLeft ? SaturatingAdd(mSymbolWidth, kSymbolGap) : mTextInset, mHorizontalSymbolOffset);

  // Own coordinates become a place in the field: the edit begins anew at its left, as narrow as it was.
  RectT<float> rect = mTextEdit->UI_GetLocalRectF(kOwn);
  auto const distance = static_cast<float>(SymbolDistance(mSymbolWidth, mHorizontalSymbolOffset));
  rect.left += onLeft ? distance : 0.0f;
  rect.width -= distance;
  mTextEdit->UI_SetLocalRectF(rect);
}

void UI_HotTimecodeControl::SetHorizontalSymbolOffset(int offset) {
  mHorizontalSymbolOffset = offset;
  mTextInset = SaturatingAdd(mSymbolOnLeft ? SaturatingAdd(mSymbolWidth, kSymbolGap) : mTextInset, offset);
}

void UI_HotTimecodeControl::SetVerticalSymbolOffset(int offset) {
  mVerticalSymbolOffset = offset;
}

PointT<float> UI_HotTimecodeControl::SymbolPosition() const {
  RectT<float> const rect = UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
  int const halfWidth = mSymbolWidth / 2;
  int const halfHeight = mSymbolHeight / 2;
  float const top = std::trunc(0.5f * rect.height - static_cast<float>(halfHeight) +
                               static_cast<float>(mVerticalSymbolOffset));
  bool const isMovedOn = mHorizontalSymbolOffset > 0;
  float const offset = isMovedOn ? static_cast<float>(mHorizontalSymbolOffset) : 0.0f;
  if (mSymbolOnLeft) {
    return {std::trunc(-0.5f * rect.width) + offset, top};
  }
  return {std::trunc((isMovedOn ? static_cast<float>(halfWidth) : 0.0f) + offset + rect.width), top};
}

// Colours

ColorRGBA UI_HotTimecodeControl::GetTextColor() const {
  if (UI_IsDisabled()) {
    float const ink = utilities::GetIsDarkTheme(this) ? 1.0f : 0.0f;
    return {ink, ink, ink, kDisabledTextAlpha};
  }
  if (mUseInvalidColor && mModel.GetValue().IsInvalid()) {
    return mInvalidColor;
  }
  if (!mIsFixed || mUseTextColorForFixed) {
    return mUseCustomTextColor ? mCustomTextColor : utilities::GetInteractiveControlColor(this);
  }
  return moxui::skins::IsRunningV7OrBeyond()
             ? utilities::GetDefaultTextColor(this)
             : moxui::ui::Theme::Get().GetColor(moxui::ui::ThemeColorID::kDefaultText);
}

void UI_HotTimecodeControl::SetCustomTextColor(ColorRGBA const& color, bool invalidate) {
  mCustomTextColor = color;
  InvalidateIf(invalidate);
}

void UI_HotTimecodeControl::SetUseInvalidColor(bool use, ColorRGBA const& color, bool invalidate) {
  mUseInvalidColor = use;
  mInvalidColor = color;
  InvalidateIf(invalidate);
}

void UI_HotTimecodeControl::SetUseTextColorForFixed(bool use, bool invalidate) {
  mUseTextColorForFixed = use;
  InvalidateIf(invalidate && mIsFixed);
}

// Painting

void UI_HotTimecodeControl::UI_Draw(Scriber* scriber) const {
  UI_SubView::UI_Draw(scriber);
  SupplierInterface const* const supplier = scriber->GetSupplier();
  if (PathP const outline = supplier->NewPath()) {
    moxui::utils::GetRoundedRectPath(outline, mTextEdit->UI_GetLocalRectF(moxui::ui::RectSpace::kParent),
                                     0.0f);
  }
  SurfaceP const surface(scriber->GetSurface());
  surface->SetDrawingMode(moxui::scriber::DrawingMode::kInterface);
  if (mHasSymbol) {
    surface->DrawImage(*mSymbol, SymbolPosition(), 1.0f);
  }
  if (mTextEdit->UI_IsShown()) {
    return;  // it draws itself
  }
  ColorRGBA const color = UI_IsEnabled() ? utilities::GetInteractiveControlColor(this)
                                         : utilities::GetDefaultTextDisabledColor(this);
  auto const fontName = moxui::utils::ValidateFontName(moxui::ui::GetFontName(FontIndex::kText));
  BrushP const brush = supplier->NewBrush(color);
  FontP const font = supplier->NewFont(fontName, "", kDrawnTextPoints);
  // Where there is no colour to be had, no text is drawn either.
  static_cast<void>(*brush);
  RectT<float> const rect = UI_GetLocalRectF(kOwn);
  surface->DrawText(mTextEdit->GetValue(),
                    {rect.left + kTextLeft, rect.top + rect.height - kBaselineAboveBottom}, *font, color);
  if (mHasOwnFocus && mFocusVisibility.ShowsRing()) {
    DrawFocusRing(scriber);
  }
}

void UI_HotTimecodeControl::DrawFocusRing(Scriber* scriber) const {
  RectT<float> const ring =
      UI_GetLocalRectF(kOwn).Grown({kRingMiddle, kRingMiddle, kRingMiddle, kRingMiddle});
  moxui::utils::DrawOutline(scriber, ring, utilities::GetFocusColor(this), kRingThickness,
                            moxui::utils::kAllEdges,
                            GetNumber(moxui::skins::SkinNumber::kCornerRadius) + kRingMiddle);
}

PaddingT<float> UI_HotTimecodeControl::UI_GetDrawOverhang() const {
  PaddingT<float> overhang{kRingReach, kRingReach, kRingReach, kRingReach};
  if (mHasSymbol) {
    RectT<float> const field = UI_GetLocalRectF(kOwn);
    PointT<float> const symbol = SymbolPosition();
    overhang.left = std::max(overhang.left, -symbol.x);
    overhang.top = std::max(overhang.top, -symbol.y);
    overhang.right = std::max(overhang.right, symbol.x + mSymbol->GetWidth() - field.width);
    overhang.bottom = std::max(overhang.bottom, symbol.y + mSymbol->GetHeight() - field.height);
  }
  return overhang;
}

}  // namespace moxmediaui
