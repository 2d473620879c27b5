#pragma once

#include <moxcore/utility/RefCountedWeakPtr.h>

#include <utility>
#include <vector>

namespace moxui::ui {

class UI_Node;
struct TreeState;

/// The timers of one tree. Periods are held to at least 10 ms; what was due several times over is told once,
/// and goes on in step.
class UI_TimerManager {
 public:
  explicit UI_TimerManager(TreeState& state);

  void InstallTimer(UI_Node* node, float milliseconds, int id);
  void RemoveTimer(UI_Node* node, int id);
  void RemoveTimers(UI_Node* node);
  void RemoveAll();
  /// Removes a node's timers and gives them: id and period each.
  std::vector<std::pair<int, float>> TakeTimers(UI_Node* node);

  /// When the next timer is due, by the tree's clock; below 0 for none.
  double GetNextDue() const;
  /// Tells the nodes whose time has come, in order of their times.
  void FireDueTimers(double now);

 private:
  struct Timer {
    moxcore::utility::RefCountedWeakPtr<UI_Node> node;
    int id;
    float period;
    double due;
  };

  TreeState& mState;
  std::vector<Timer> mTimers;
};

}  // namespace moxui::ui
