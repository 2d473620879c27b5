#pragma once

#include <moxui/platform/ModalResponder.h>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace moxui::testing {

class Stage;
template <class T>
class StandIn;

/// What a box asked, kept after it closed.
struct ModalRecord {
  platform::ModalKind kind = platform::ModalKind::kMessageBox;
  moxcore::Utf16String title{};
  moxcore::Utf16String text{};
  std::vector<ui::OS_MenuItem> menuItems{};
  PointT<float> position{};  ///< of a menu
  int answer = 0;
};

/// Answers modal boxes for a test, while it lives. Answers are given in the order in which they were set up;
/// a box without one is answered 0 (or its cancel, see `SetDefault`) and recorded, so that no test ever
/// waits.
class ModalAnswers : public platform::ModalResponder {
 public:
  using Function = std::function<int(platform::ModalRequest&)>;

  ModalAnswers();
  ~ModalAnswers() override;

  void Expect(int answer);
  /// Drives the box (a dialog's content, an input box's text) and gives its answer.
  void Expect(Function function);
  /// Puts the box on a stage of its size, with the focus as it opens, for a test to drive it as a user would;
  /// what the events answer counts, 0 if they answer nothing.
  void ExpectDriven(std::function<void(Stage&)> drive);
  /// Chooses the item of a menu by its text; none, as a hand would, if there is none of that text. Throws
  /// std::logic_error when the box is no menu.
  void ExpectItem(moxcore::Utf16String text);
  void SetDefault(int answer) { mDefault = answer; }
  std::vector<ModalRecord> const& GetRecords() const { return mRecords; }
  bool AllUsed() const { return mAnswers.empty(); }

  std::optional<int> Answer(platform::ModalRequest& request) override;

 private:
  std::unique_ptr<StandIn<platform::ModalResponder>> mStandIn;
  std::deque<Function> mAnswers;
  std::vector<ModalRecord> mRecords;
  int mDefault = 0;
};

}  // namespace moxui::testing
