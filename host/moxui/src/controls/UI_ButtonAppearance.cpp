// What a button is drawn with: setters that repaint it when something changes.
#include <moxui/controls/UI_Button.h>

namespace moxui::controls {
namespace {

template <typename Change>
ButtonComponents Changed(ButtonComponents components, Change change) {
  change(components);
  return components;
}

}  // namespace

void UI_Button::SetDefaultAppearance(bool isDefault) {
  StoreVisual(mIsDefault, isDefault);
}

void UI_Button::SetCommitAppearance(bool commits) {
  StoreVisual(mCommits, commits);
}

void UI_Button::SetDisplayBorderAlways(bool displays) {
  StoreVisual(mDisplayBorderAlways, displays);
}

void UI_Button::SetDisplayBorderNever(bool never) {
  StoreVisual(mDisplayBorderNever, never);
}

void UI_Button::SetDisplayContainerAlways(bool displays) {
  StoreVisual(mDisplayContainerAlways, displays);
}

void UI_Button::SetStrokeSizes(float withDefault, float withoutDefault) {
  StoreVisual(mStrokeSizes, std::pair(withDefault, withoutDefault));
}

void UI_Button::SetContentOffset(PointT<float> offset) {
  StoreVisual(mContentOffset, offset);
}

void UI_Button::SetDownOffset(PointT<float> offset) {
  StoreVisual(mDownOffset, offset);
}

void UI_Button::SetCornerRadius(std::optional<float> radius) {
  StoreVisual(mCornerRadius, radius);
}

void UI_Button::SetSuppressFocusDrawing(bool suppress) {
  StoreVisual(mSuppressFocusDrawing, suppress);
}

void UI_Button::SetComponents(ButtonComponents const& components) {
  StoreVisual(mComponents, components);
}

void UI_Button::SetComponentSize(ComponentSize size) {
  SetComponents(
      Changed(mComponents, [&](ButtonComponents& components) { components.SetComponentSize(size); }));
}

void UI_Button::SetVariant(ButtonVariant variant) {
  SetComponents(Changed(mComponents, [&](ButtonComponents& components) { components.SetVariant(variant); }));
}

void UI_Button::SetQuiet(bool quiet) {
  SetComponents(Changed(mComponents, [&](ButtonComponents& components) { components.SetQuiet(quiet); }));
}

void UI_Button::SetEmphasized(bool emphasized) {
  SetComponents(
      Changed(mComponents, [&](ButtonComponents& components) { components.SetEmphasized(emphasized); }));
}

void UI_Button::SetShowHoldIcon(bool shows) {
  SetComponents(
      Changed(mComponents, [&](ButtonComponents& components) { components.SetShowHoldIcon(shows); }));
}

void UI_Button::SetDensity(ComponentDensity density) {
  SetComponents(Changed(mComponents, [&](ButtonComponents& components) { components.SetDensity(density); }));
}

}  // namespace moxui::controls
