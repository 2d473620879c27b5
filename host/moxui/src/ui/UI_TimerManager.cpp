#include "DispatchScope.h"
#include "TreeState.h"

#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_Node.h>
#include <moxui/ui/UI_TimerManager.h>

#include <algorithm>
#include <cmath>

namespace moxui::ui {

namespace {

constexpr float kShortestPeriod = 10;

/// The first time after `now` that a timer due at `due` is due again; in step with the times missed.
double NextAfter(double due, double period, double now) {
  double const next = due + period * (std::floor(std::max(now - due, 0.0) / period) + 1);
  return next > now ? next : now + period;  // where rounding has eaten the period
}

}  // namespace

UI_TimerManager::UI_TimerManager(TreeState& state) : mState(state) {}

void UI_TimerManager::InstallTimer(UI_Node* node, float milliseconds, int id) {
  RemoveTimer(node, id);
  // Not a number counts as the shortest, too.
  float const period = milliseconds > kShortestPeriod ? milliseconds : kShortestPeriod;
  mTimers.push_back({moxcore::utility::RefCountedWeakPtr<UI_Node>(node), id, period,
                     mState.host->GetTime() + static_cast<double>(period)});
  mState.ScheduleWakeUp();
}

void UI_TimerManager::RemoveTimer(UI_Node* node, int id) {
  std::erase_if(mTimers, [&](Timer const& timer) { return timer.id == id && timer.node.Lock() == node; });
  mState.ScheduleWakeUp();
}

void UI_TimerManager::RemoveTimers(UI_Node* node) {
  std::erase_if(mTimers, [&](Timer const& timer) { return timer.node.Lock() == node; });
  mState.ScheduleWakeUp();
}

std::vector<std::pair<int, float>> UI_TimerManager::TakeTimers(UI_Node* node) {
  std::vector<std::pair<int, float>> taken;
  for (auto const& timer : mTimers) {
    if (timer.node.Lock() == node) {
      taken.emplace_back(timer.id, timer.period);
    }
  }
  if (!taken.empty()) {
    RemoveTimers(node);
  }
  return taken;
}

double UI_TimerManager::GetNextDue() const {
  auto const next = std::ranges::min_element(mTimers, {}, &Timer::due);
  return next == mTimers.end() ? -1 : next->due;
}

void UI_TimerManager::RemoveAll() {
  mTimers.clear();
}

void UI_TimerManager::FireDueTimers(double now) {
  DispatchScope const scope(mState);
  std::erase_if(mTimers, [](Timer const& timer) { return timer.node.IsExpired(); });
  auto due = mTimers;
  std::erase_if(due, [&](Timer const& timer) { return timer.due > now; });
  std::ranges::stable_sort(due, {}, &Timer::due);
  for (auto const& timer : due) {
    auto const node = timer.node.Lock();
    // A timer that fired before may have removed this one, or started it anew.
    auto const held = std::ranges::find_if(mTimers, [&](Timer const& one) {
      return one.node == timer.node && one.id == timer.id && one.due == timer.due;
    });
    if (!node || held == mTimers.end()) {
      continue;
    }
    held->due = NextAfter(timer.due, static_cast<double>(timer.period), now);
    node->UI_DoTimerNotify(timer.id);
  }
}

}  // namespace moxui::ui
