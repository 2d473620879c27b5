#include "controls/ControlKeys.h"

namespace playground {
namespace {

constexpr KeyLine kTab{"$$$/playground/keys/tab=Tab, Shift+Tab",
                       "$$$/playground/keys/tab/text=To the next control, or the one before"};

std::vector<KeyLine> ButtonKeys() {
  return {kTab,
          {"$$$/playground/keys/spaceEnter=Space, Enter",
           "$$$/playground/keys/press=Press the button: Enter at once, Space when it is let go"},
          {"$$$/playground/keys/escape=Esc",
           "$$$/playground/keys/escape/press=While Space is held: take the press back"},
          {"$$$/playground/keys/leftRight=Left, Right",
           "$$$/playground/keys/leftRight/triangle=Collapse or expand what a triangle stands for"},
          {"$$$/playground/keys/arrows=Arrow keys",
           "$$$/playground/keys/arrows/radio=Choose among the radio buttons of a group"}};
}

std::vector<KeyLine> CheckboxKeys() {
  return {kTab, {"$$$/playground/keys/space=Space", "$$$/playground/keys/space/check=Turn it on or off"}};
}

std::vector<KeyLine> PopupKeys() {
  return {kTab,
          {"$$$/playground/keys/openMenu=Space, Enter, Up, Down",
           "$$$/playground/keys/openMenu/text=Open the menu"},
          {"$$$/playground/keys/leftRight=Left, Right",
           "$$$/playground/keys/leftRight/popup=Choose the item before or the next one, without the menu"},
          {"$$$/playground/keys/letters=Letters",
           "$$$/playground/keys/letters/text=Choose the next item that begins with what is typed"}};
}

std::vector<KeyLine> SliderKeys() {
  return {kTab,
          {"$$$/playground/keys/arrows=Arrow keys",
           "$$$/playground/keys/arrows/slider=A step down or up; with Shift ten, with Ctrl a tenth of one"},
          {"$$$/playground/keys/pages=Page Down, Page Up",
           "$$$/playground/keys/pages/slider=A large step down or up"},
          {"$$$/playground/keys/homeEnd=Home, End", "$$$/playground/keys/homeEnd/slider=To either end"},
          {"$$$/playground/keys/escape=Esc",
           "$$$/playground/keys/escape/slider=While dragging: back to the value before"}};
}

std::vector<KeyLine> ScrollViewKeys() {
  return {kTab,
          {"$$$/playground/keys/arrows=Arrow keys", "$$$/playground/keys/arrows/scroll=A line, or sideways"},
          {"$$$/playground/keys/pages=Page Down, Page Up", "$$$/playground/keys/pages/scroll=A page"},
          {"$$$/playground/keys/homeEnd=Home, End",
           "$$$/playground/keys/homeEnd/scroll=To the beginning or the end"}};
}

std::vector<KeyLine> HotTextKeys() {
  return {
      kTab,
      {"$$$/playground/keys/enter=Enter", "$$$/playground/keys/enter/hot=Edit, and commit what was typed"},
      {"$$$/playground/keys/digits=Digits", "$$$/playground/keys/digits/hot=Type a number at once"},
      {"$$$/playground/keys/arrows=Arrow keys",
       "$$$/playground/keys/arrows/hot=A step down or up; with Shift a large one, with Ctrl a small one"},
      {"$$$/playground/keys/pages=Page Down, Page Up",
       "$$$/playground/keys/pages/slider=A large step down or up"},
      {"$$$/playground/keys/homeEnd=Home, End", "$$$/playground/keys/homeEnd/slider=To either end"},
      {"$$$/playground/keys/escape=Esc",
       "$$$/playground/keys/escape/hot=While dragging or editing: back to what was there before"}};
}

std::vector<KeyLine> TextEditKeys() {
  return {kTab,
          {"$$$/playground/keys/enter=Enter",
           "$$$/playground/keys/enter/text=Commit the text; among several lines a new line, and Ctrl+Enter "
           "commits"},
          {"$$$/playground/keys/escape=Esc",
           "$$$/playground/keys/escape/text=Bring the text from before the editing back"},
          {"$$$/playground/keys/words=Ctrl+Left, Ctrl+Right",
           "$$$/playground/keys/words/text=By words; with Shift it selects"},
          {"$$$/playground/keys/undo=Ctrl+Z, Ctrl+Shift+Z", "$$$/playground/keys/undo/text=Undo, redo"},
          {"$$$/playground/keys/clipboard=Ctrl+X, Ctrl+C, Ctrl+V",
           "$$$/playground/keys/clipboard/text=Cut, copy, paste"}};
}

std::vector<KeyLine> TreeKeys() {
  return {kTab,
          {"$$$/playground/keys/tree/move=Up, Down, Home, End",
           "$$$/playground/keys/tree/move/text=Choose a row, with Page Up and Page Down a page away; with "
           "Shift, all between"},
          {"$$$/playground/keys/leftRight=Left, Right",
           "$$$/playground/keys/leftRight/tree=Close or open a row; in the header, go from name to name"},
          {"$$$/playground/keys/tree/width=Shift+Left, Right",
           "$$$/playground/keys/tree/width/text=In the header: a narrower or wider column"},
          {"$$$/playground/keys/letters=Letters",
           "$$$/playground/keys/letters/tree=Choose the next row that begins with what is typed"}};
}

std::vector<KeyLine> BoxKeys() {
  return {kTab,
          {"$$$/playground/keys/enter=Enter",
           "$$$/playground/keys/enter/box=The button that has the focus, else the default button"},
          {"$$$/playground/keys/space=Space", "$$$/playground/keys/space/box=The button that has the focus"},
          {"$$$/playground/keys/escape=Esc",
           "$$$/playground/keys/escape/box=Cancel, else No, else the only button; closing means the same"}};
}

struct KeysByPage {
  std::string_view page;
  std::vector<KeyLine> (*keys)();
};

constexpr KeysByPage kPages[] = {{"buttons", ButtonKeys},
                                 {"checkbox", CheckboxKeys},
                                 {"popup", PopupKeys},
                                 {"slider", SliderKeys},
                                 {"scroll-view", ScrollViewKeys},
                                 {"hot-text", HotTextKeys},
                                 {"text-edit", TextEditKeys},
                                 {"tree", TreeKeys},
                                 {"message-box", BoxKeys},
                                 {"dialog", BoxKeys}};

}  // namespace

std::vector<KeyLine> KeysOfPage(std::string_view page) {
  for (KeysByPage const& one : kPages) {
    if (one.page == page) {
      return one.keys();
    }
  }
  return {};
}

}  // namespace playground
