#pragma once

#include <moxcore/utility/RefCountedObject.h>
#include <moxmediaui/HostTypes.h>
#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/dialogs/UI_Dialog.h>

namespace moxmediaui {

/// A small modal dialog for typing the two coordinates of a curve point: two captions, two numbers, OK and
/// Cancel. A client sets ranges, formats and values on the numbers, runs it, and reads the numbers back.
/// Cancel leaves them as the user typed them: look at the response. A copy shares the dialog. The library is
/// initialised while one exists. Main thread only.
class CurvePointEditDialog : public moxcore::utility::RefCountedObject {
 public:
  using Response = moxui::dialogs::UI_DialogViewContainer::Response;

  /// As large as the captions need. Throws the null-pointer exception when a caption is missing in the view
  /// archive, "Invalid type conversion." when a control is of another type.
  CurvePointEditDialog(Utf16String const& title, Utf16String const& caption1, Utf16String const& caption2,
                       moxui::dialogs::WindowVariant const& parent);
  CurvePointEditDialog(CurvePointEditDialog const& other);
  ~CurvePointEditDialog() override;

  IntrusivePtr<moxui::controls::UI_HotTextNumber> GetHotTextNumber1() const { return mNumber1; }
  IntrusivePtr<moxui::controls::UI_HotTextNumber> GetHotTextNumber2() const { return mNumber2; }

  /// Waits until the dialog is closed.
  void RunModal();
  /// How the last run ended; means nothing before one.
  Response GetResponse() const { return mResponse; }

 private:
  void CreateDialogAndControls(Utf16String const& title, Utf16String const& caption1,
                               Utf16String const& caption2, moxui::dialogs::WindowVariant const& parent);

  IntrusivePtr<moxui::controls::UI_StaticText> mCaption1;
  IntrusivePtr<moxui::controls::UI_StaticText> mCaption2;
  IntrusivePtr<moxui::controls::UI_HotTextNumber> mNumber1;
  IntrusivePtr<moxui::controls::UI_HotTextNumber> mNumber2;
  IntrusivePtr<moxui::dialogs::UI_Dialog> mDialog;
  Response mResponse = Response::kNone;
};

}  // namespace moxmediaui
