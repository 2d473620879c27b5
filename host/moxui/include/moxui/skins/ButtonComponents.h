#pragma once

namespace moxui::skins {

/// How large a control is beside others of its kind; medium is the size of a look's rows.
enum class ComponentSize { kDefault = 0, kMedium = 1, kSmall = 2, kLarge = 3 };

/// How much room a control leaves around its content.
enum class ComponentDensity { kRegular = 0, kCompact = 1 };

/// What a button stands for: primary carries out what its window is for, negative destroys something. The
/// classic look parts them by their colours too.
enum class ButtonVariant { kPlain = 0, kPrimary = 1, kSecondary = 2, kNegative = 3 };

// The mix-ins hold what archives and clients say about a control in the V7 look. All are plain values.

class SizedComponent {
 public:
  void SetComponentSize(ComponentSize size) { mComponentSize = size; }
  ComponentSize GetComponentSize() const { return mComponentSize; }

  friend bool operator==(SizedComponent const&, SizedComponent const&) = default;

 private:
  ComponentSize mComponentSize = ComponentSize::kDefault;
};

/// A quiet control has no face of its own until the pointer comes.
class QuietComponent {
 public:
  void SetQuiet(bool quiet) { mIsQuiet = quiet; }
  bool IsQuiet() const { return mIsQuiet; }

  friend bool operator==(QuietComponent const&, QuietComponent const&) = default;

 private:
  bool mIsQuiet = false;
};

class SelectableComponent {
 public:
  void SetSelected(bool selected) { mIsSelected = selected; }
  bool IsSelected() const { return mIsSelected; }

  friend bool operator==(SelectableComponent const&, SelectableComponent const&) = default;

 private:
  bool mIsSelected = false;
};

/// An emphasised control shows its selection in the interactive colour.
class EmphasizedComponent {
 public:
  void SetEmphasized(bool emphasized) { mIsEmphasized = emphasized; }
  bool IsEmphasized() const { return mIsEmphasized; }

  friend bool operator==(EmphasizedComponent const&, EmphasizedComponent const&) = default;

 private:
  bool mIsEmphasized = false;
};

/// A hold icon, a small corner, tells that a longer press opens more.
class HoldIconComponent {
 public:
  void SetShowHoldIcon(bool shows) { mShowsHoldIcon = shows; }
  bool ShowsHoldIcon() const { return mShowsHoldIcon; }

  friend bool operator==(HoldIconComponent const&, HoldIconComponent const&) = default;

 private:
  bool mShowsHoldIcon = false;
};

/// How closely a control is laid out: the margins beside the label of a compact one are half as wide.
class DensityComponent {
 public:
  void SetDensity(ComponentDensity density) { mDensity = density; }
  ComponentDensity GetDensity() const { return mDensity; }

  friend bool operator==(DensityComponent const&, DensityComponent const&) = default;

 private:
  ComponentDensity mDensity = ComponentDensity::kRegular;
};

/// All that the V7 look wants to know of a button.
class ButtonComponents : public SizedComponent,
                         public QuietComponent,
                         public SelectableComponent,
                         public EmphasizedComponent,
                         public HoldIconComponent,
                         public DensityComponent {
 public:
  explicit ButtonComponents(ButtonVariant variant = ButtonVariant::kPlain) : mVariant(variant) {}

  void SetVariant(ButtonVariant variant) { mVariant = variant; }
  ButtonVariant GetVariant() const { return mVariant; }

  friend bool operator==(ButtonComponents const&, ButtonComponents const&) = default;

 private:
  ButtonVariant mVariant;
};

}  // namespace moxui::skins
