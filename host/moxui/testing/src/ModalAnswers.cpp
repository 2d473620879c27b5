#include "StandIn.h"

#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace moxui::testing {

ModalAnswers::ModalAnswers()
    : mStandIn(std::make_unique<StandIn<platform::ModalResponder>>(&platform::SetModalResponder, this)) {}
ModalAnswers::~ModalAnswers() = default;

void ModalAnswers::Expect(int answer) {
  mAnswers.emplace_back([answer](platform::ModalRequest&) { return answer; });
}

void ModalAnswers::Expect(Function function) {
  mAnswers.push_back(std::move(function));
}

void ModalAnswers::ExpectDriven(std::function<void(Stage&)> drive) {
  Expect([drive = std::move(drive)](platform::ModalRequest& request) {
    Stage stage{moxcore::utility::IntrusivePtr<ui::UI_Node>(request.content)};
    if (request.opened) {
      request.opened();
    }
    stage.PaintFrame();
    drive(stage);
    return 0;
  });
}

void ModalAnswers::ExpectItem(moxcore::Utf16String text) {
  Expect([text = std::move(text)](platform::ModalRequest& request) {
    if (request.menuItems == nullptr) {
      throw std::logic_error("a box that is no menu was asked for an item");
    }
    auto const& items = *request.menuItems;
    auto const item = std::ranges::find(items, text, &ui::OS_MenuItem::text);
    return item != items.end() ? item->id : 0;
  });
}

std::optional<int> ModalAnswers::Answer(platform::ModalRequest& request) {
  ModalRecord record;
  record.kind = request.kind;
  record.title = request.title;
  record.text = request.text;
  record.position = request.position;
  record.answer = mDefault;
  if (request.menuItems != nullptr) {
    record.menuItems = *request.menuItems;
  }
  std::size_t const place = mRecords.size();
  mRecords.push_back(std::move(record));
  if (!mAnswers.empty()) {
    // Taken out first: while it drives a dialog it may meet further boxes.
    Function const function = std::move(mAnswers.front());
    mAnswers.pop_front();
    int const answer = function(request);
    mRecords[place].answer = answer;
    return answer;
  }
  return mDefault;
}

}  // namespace moxui::testing
