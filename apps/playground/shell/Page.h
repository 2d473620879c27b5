#pragma once

#include <moxui/ui/UI_SubView.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace moxui::platform {
struct FileRequest;
}

namespace playground {

class AudioSession;
class ChannelDesk;
class CurveSession;
class EventLog;
class TimecodeBench;
class Transport;
class WaveformPresets;

// One page of the program: some controls at work. It shows one of its states, by their numbers.
class Page : public moxui::ui::UI_SubView {
 public:
  virtual void ShowState(std::size_t state) = 0;
  // The page takes the place of one that was left in a state. Pages whose states are but places to begin from
  // stay as they are.
  virtual void ResumeState(std::size_t state) { ShowState(state); }
  // Waits for what other threads still make for its picture.
  virtual void Settle() {}
  // How far the page is scrolled down, where it scrolls.
  virtual float GetScrollOffset() const { return 0.0f; }
  virtual void SetScrollOffset(float) {}
  // Takes back what the pointer is dragging at the moment. False when it drags nothing.
  virtual bool CancelDrag() { return false; }
  // A key that no control had a use for, wherever the focus is in the window.
  virtual bool HandleShortcut(moxui::ui::KeyboardEvent const&) { return false; }
};

// What pages work with; all of it outlives them.
struct PageContext {
  AudioSession& audio;
  Transport& transport;
  EventLog& log;
  TimecodeBench& timecode;
  ChannelDesk& channels;
  CurveSession& curve;
  WaveformPresets& presets;
  // Asks the user for the name of a file to write; empty when there is none to be.
  std::function<std::string(moxui::platform::FileRequest request)> askWhereToSave = {};
};

// A state of a page: its name for files, and its title as a literal.
struct PageState {
  std::string_view name;
  std::string_view title;
};

struct PageDescriptor {
  std::string_view name;   // on the command line and in the names of pictures
  std::string_view title;  // literals
  std::string_view group;
  std::string_view description;
  std::vector<PageState> states;
  std::function<moxcore::utility::IntrusivePtr<Page>(PageContext const&)> make;
};

// All pages, in the order of the list; pages of a group stand together.
std::vector<PageDescriptor> const& AllPages();
// The number of a page by its name; the number of pages when there is none.
std::size_t FindPage(std::string_view name);
// The same, but the first page when there is none.
std::size_t FindPageOrFirst(std::string_view name);
// The pages whose title, name or group has `text` in it, whatever the case.
std::vector<std::size_t> PagesMatching(std::u16string_view text);

}  // namespace playground
