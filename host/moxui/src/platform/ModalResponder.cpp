#include "../ui/ModalScope.h"

#include <moxui/platform/ModalResponder.h>

#include <algorithm>
#include <utility>

namespace moxui::platform {

namespace {

ModalResponder* gModalResponder = nullptr;

}  // namespace

ModalResponder::~ModalResponder() = default;

ModalResponder* SetModalResponder(ModalResponder* responder) {
  return std::exchange(gModalResponder, responder);
}
ModalResponder* GetModalResponder() {
  return gModalResponder;
}

std::optional<int> AskModalResponder(ModalRequest& request) {
  if (gModalResponder == nullptr) {
    return std::nullopt;
  }
  // A menu leaves its window active.
  if (request.kind == ModalKind::kMenu) {
    return gModalResponder->Answer(request);
  }
  auto const paused = ui::PauseTrees();
  std::optional<int> answer;
  try {
    answer = gModalResponder->Answer(request);
  } catch (...) {
    ui::ResumeTrees(paused);
    throw;
  }
  ui::ResumeTrees(paused);
  return answer;
}

}  // namespace moxui::platform
