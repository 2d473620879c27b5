#include <moxcore/config/ApplicationName.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxmediaui/Preset.h>
#include <moxmediaui/PresetsView.h>
#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/resources/ImageProvider.h>

#include <algorithm>
#include <utility>

namespace moxmediaui {

namespace {

using moxcore::config::Localizer;
using moxcore::messaging::BindMessageFunction;
using moxui::controls::UI_PictureButton;
using moxui::controls::UI_Popup;

// From so many protected presets on a separator parts them from the others.
constexpr std::size_t kLeastParted = 2;

template <class Control>
IntrusivePtr<Control> FindControl(moxui::ui::NodeMap const& nodes, char const* id) {
  auto const found = nodes.find(id);
  return found != nodes.end() ? moxcore::utility::DynamicCast<Control>(found->second) : nullptr;
}

moxui::controls::ImageSupplyFunction SupplyBy(moxui::utility::ImageProvider* provider) {
  return std::make_shared<moxcore::messaging::ConstMessageFunction>(
      [provider](moxcore::messaging::ConstMessage* message) {
        if (provider != nullptr) {
          provider->ProvideImage(dynamic_cast<moxui::controls::UI_PictureSupplyMessage*>(message));
        }
      });
}

}  // namespace

IntrusivePtr<PresetsView> PresetsView::Create() {
  return IntrusivePtr<PresetsView>::Adopt(new PresetsView);
}

PresetsView::PresetsView() : XMLHostView("PresetsView") {
  ResetDialogStrings();
}

PresetsView::~PresetsView() = default;

void PresetsView::Initialize(ResourceManager* resources, SupplierInterface const* supplier,
                             moxui::utility::ImageProvider* imageProvider) {
  mImageProvider = imageProvider;
  Init(resources, supplier);
  mApplicationName = moxcore::string::UTF8to16(moxcore::config::GetApplicationName());
}

void PresetsView::ConnectControls() {
  mPresetsPopup = FindControl<UI_Popup>(GetNodeMap(), "PresetsPopupID");
  mSaveButton = FindControl<UI_PictureButton>(GetNodeMap(), "SavePresetButtonID");
  mDeleteButton = FindControl<UI_PictureButton>(GetNodeMap(), "DeletePresetButtonID");
  InitControls();
}

void PresetsView::InitControls() {
  mPresetsPopup->NotifyWhenChanged(BindMessageFunction(this, &PresetsView::OnPopupChanged));
  mPresetsPopup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  // The end of a name must be seen: there stands the mark of a modified one.
  mPresetsPopup->SetTextTruncation(moxui::controls::TextTruncation::kMiddle);
  mPresetsPopup->SetAccessibleName(Localizer::Get().GetUTF8String(
      "$$$/MOXMediaUI/PresetsView/PopupName=Preset#{comment} for screen readers"));
  mSaveButton->SetImageSupplyFunction(SupplyBy(mImageProvider));
  mSaveButton->NotifyWhenChanged(BindMessageFunction(this, &PresetsView::OnSaveButtonChanged));
  mDeleteButton->SetImageSupplyFunction(SupplyBy(mImageProvider));
  mDeleteButton->NotifyWhenChanged(BindMessageFunction(this, &PresetsView::OnDeleteButtonChanged));
}

void PresetsView::UI_SizeChanged(RectT<float> const& rect) {
  XMLHostView::UI_SizeChanged(rect);
}

void PresetsView::SetPresetProvider(PresetProviderInterface* provider) {
  if (provider == nullptr) {
    ResetDialogStrings();
  }
  if (provider == mPresetProvider) {
    return;
  }
  mProviderConnection.Disconnect();
  mPresetProvider = provider;
  if (mPresetProvider != nullptr) {
    mProviderConnection = mPresetProvider->ConnectStateChanged([this] { OnPresetProviderStateChanged(); });
    UpdateControls();
  } else {
    SetValueUnknown();
  }
}

void PresetsView::SetValueUnknown() {
  mPresetsPopup->SetValueUnknown();
  mPresetsPopup->SetValue(UI_Popup::kNoItem);
}

void PresetsView::SetDialogStrings(Utf16String title, Utf16String prompt) {
  mSaveDialogTitle = std::move(title);
  mSaveDialogPrompt = std::move(prompt);
  Localizer const& localizer = Localizer::Get();
  if (mSaveDialogTitle.empty()) {
    mSaveDialogTitle =
        localizer.GetUTF16String("$$$/MediaIO/MOXMediaUI/PresetsView/SavePresetDialogTitle=Save Preset");
  }
  if (mSaveDialogPrompt.empty()) {
    mSaveDialogPrompt =
        localizer.GetUTF16String("$$$/MediaIO/MOXMediaUI/PresetsView/SavePresetName=Preset Name:");
  }
}

void PresetsView::ResetDialogStrings() {
  SetDialogStrings({}, {});
}

void PresetsView::OnPresetProviderStateChanged() {
  if (mPresetProvider != nullptr) {
    UpdateControls();
  }
}

void PresetsView::UpdateControls() {
  if (mPresetProvider != nullptr) {
    mPresetInfos.clear();
    GetPresetInfos(mPresetInfos);
  }
  auto const firstOwn = std::ranges::find_if(mPresetInfos, [](PresetInfo const& info) {
    return !moxappsupport::presets::IsProtectedPreset(info.flags);
  });
  auto const protectedCount = static_cast<std::size_t>(firstOwn - mPresetInfos.begin());
  FillPopup(protectedCount);
  PresetInfo current;
  GetCurrentPresetInfo(current, mIsModified);
  if (mIsModified) {
    Utf16String text;
    GetDisplayString(text);
    mPresetsPopup->SetValueString(std::move(text), true, true);
  } else {
    SelectItem(current.guid, protectedCount);
  }
  mSaveButton->UI_SetEnabled(mPresetProvider != nullptr && CanCreatePreset());
  mDeleteButton->UI_SetDisabled((current.flags & moxappsupport::presets::PresetFlagFactory) != 0 ||
                                current.name.empty() || IsReservedPresetName(current.name));
}

void PresetsView::FillPopup(std::size_t protectedCount) {
  mPresetsPopup->DeleteAllItems();
  mPopupItems.clear();
  for (std::size_t i = 0; i < mPresetInfos.size(); ++i) {
    if (protectedCount >= kLeastParted && i == protectedCount) {
      mPresetsPopup->AddSeparator();
    }
    std::int64_t const value =
        mPresetsPopup->AddItem(moxcore::string::UTF8to16(mPresetInfos[i].name), UI_Popup::kAppend);
    mPopupItems.emplace(value, mPresetInfos[i]);
  }
}

// A preset that isn't listed gives the value past the last one.
void PresetsView::SelectItem(Guid const& guid, std::size_t protectedCount) {
  auto const found = std::ranges::find(mPresetInfos, guid, &PresetInfo::guid);
  auto index = static_cast<std::size_t>(found - mPresetInfos.begin());
  if (protectedCount >= kLeastParted && index >= protectedCount) {
    ++index;
  }
  mPresetsPopup->SetValue(static_cast<std::int64_t>(index));
}

bool PresetsView::IsReservedPresetName(Utf8String const& name) const {
  if (name == Localizer::Get().GetUTF8String("$$$/app/PresetManager/CustomPresetName=(Custom)")) {
    return true;
  }
  return mPresetProvider != nullptr && mPresetProvider->IsReservedPresetName(name);
}

void PresetsView::GetCurrentPresetInfo(PresetInfo& info, bool& modified) const {
  if (mPresetProvider != nullptr) {
    mPresetProvider->GetCurrentPresetInfo(info, modified);
  }
}

void PresetsView::GetPresetInfos(std::vector<PresetInfo>& infos) const {
  if (mPresetProvider != nullptr) {
    mPresetProvider->GetPresetInfos(infos);
  }
}

void PresetsView::GetDisplayString(Utf16String& text) const {
  if (mPresetProvider != nullptr) {
    mPresetProvider->GetDisplayString(text);
  }
}

bool PresetsView::CanCreatePreset() const {
  return mPresetProvider != nullptr && mPresetProvider->CanCreatePreset();
}

bool PresetsView::CreatePreset(Utf8String const& name) {
  return mPresetProvider != nullptr && mPresetProvider->CreatePreset(name);
}

bool PresetsView::LoadPreset(PresetInfo const& info) {
  return mPresetProvider != nullptr && mPresetProvider->LoadPreset(info);
}

bool PresetsView::SavePreset(PresetInfo const& info) {
  return mPresetProvider != nullptr && mPresetProvider->SavePreset(info);
}

bool PresetsView::RemovePreset(PresetInfo const& info) {
  return mPresetProvider != nullptr && mPresetProvider->RemovePreset(info);
}

}  // namespace moxmediaui
