// The dialog in which a point of the curve is typed, answered by events.
#include "playground/curve/WorkedCurve.h"

#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/ui/UI_Container.h>

namespace playground {
namespace {

using moxui::testing::Stage;
using moxui::ui::KeyboardCode;
using moxui::ui::UI_Node;
namespace ModKey = moxui::ui::ModKey;

class PointDialog : public WorkedCurve {
 protected:
  static UI_Node* Find(UI_Node& node, std::string_view id) {
    if (node.UI_GetNodeID() == id) {
      return &node;
    }
    auto* const container = node.UI_GetContainer();
    for (std::size_t i = 0; container != nullptr && i < container->ChildSize(); ++i) {
      if (UI_Node* const found = Find(*container->ChildGet(i), id)) {
        return found;
      }
    }
    return nullptr;
  }
  static moxui::controls::UI_HotTextNumber& Number(Stage& dialog, std::string_view id) {
    return dynamic_cast<moxui::controls::UI_HotTextNumber&>(*Find(*dialog.GetRoot(), id));
  }
  static void Press(Stage& dialog, std::string_view button) {
    dialog.Click(dialog.CenterOf(*Find(*dialog.GetRoot(), button)));
  }
  // Types both numbers.
  static void Type(Stage& dialog, std::u16string_view input, std::u16string_view output) {
    dialog.Click(dialog.CenterOf(Number(dialog, "Number1")));
    dialog.Type(input);
    dialog.Key(KeyboardCode::kReturn);
    dialog.Click(dialog.CenterOf(Number(dialog, "Number2")));
    dialog.Type(output);
    dialog.Key(KeyboardCode::kReturn);
  }
  void OpenByEnter() {
    FocusPoint(1);
    EXPECT_TRUE(Key(KeyboardCode::kReturn));
    EXPECT_TRUE(answers.AllUsed());
  }

  moxui::testing::ModalAnswers answers;
};

TEST_F(PointDialog, OkGivesThePointTheNumbers) {
  answers.ExpectDriven([&](Stage& dialog) {
    EXPECT_EQ(Number(dialog, "Number1").GetValue(), 64.0);
    EXPECT_EQ(Number(dialog, "Number2").GetValue(), 40.0);
    Type(dialog, u"70", u"90.5");
    Press(dialog, "OKButton");
  });
  OpenByEnter();
  EXPECT_EQ(Point(1), (CurvePoint{70, 90.5}));
  EXPECT_EQ(answers.GetRecords().back().title, u"Curve Point");
  EXPECT_TRUE(HasFocus(1));
  Session().Undo();
  EXPECT_EQ(Curve(), Begun()) << "one step";
}

TEST_F(PointDialog, CancelAndEscapeRestoreTheCurve) {
  for (bool const byKey : {false, true}) {
    answers.ExpectDriven([&](Stage& dialog) {
      Type(dialog, u"70", u"90");
      EXPECT_EQ(Point(1), (CurvePoint{70, 90})) << "the curve follows what is typed";
      byKey ? static_cast<void>(dialog.Key(KeyboardCode::kEscape)) : Press(dialog, "CancelButton");
    });
    OpenByEnter();
    EXPECT_EQ(Curve(), Begun());
    Session().Undo();
    EXPECT_EQ(Curve(), ToneCurve()) << "there is nothing of it to undo";
    Session().Redo();
  }
}

TEST_F(PointDialog, FollowsADragOfANumber) {
  answers.ExpectDriven([&](Stage& dialog) {
    dialog.Press(dialog.CenterOf(Number(dialog, "Number2")));
    dialog.MoveBy({20.0f, 0.0f});
    EXPECT_GT(Point(1).y, 40.0);
    EXPECT_EQ(Point(1).y, Number(dialog, "Number2").GetValue());
    dialog.ReleaseHere();
    Press(dialog, "CancelButton");
  });
  OpenByEnter();
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(PointDialog, HoldsNumbersBetweenTheNeighbours) {
  answers.ExpectDriven([&](Stage& dialog) {
    Type(dialog, u"250", u"-7");
    EXPECT_EQ(Number(dialog, "Number1").GetValue(), 191.0);
    EXPECT_EQ(Number(dialog, "Number2").GetValue(), 0.0);
    Type(dialog, u"-250", u"999");
    EXPECT_EQ(Number(dialog, "Number1").GetValue(), 1.0);
    EXPECT_EQ(Number(dialog, "Number2").GetValue(), 255.0);
    Press(dialog, "OKButton");
  });
  OpenByEnter();
  EXPECT_EQ(Point(1), (CurvePoint{1, 255}));
}

TEST_F(PointDialog, TextsThatAreNoNumbersChangeNothing) {
  answers.ExpectDriven([&](Stage& dialog) {
    Type(dialog, u"x", u"");
    Press(dialog, "OKButton");
  });
  OpenByEnter();
  EXPECT_EQ(Curve(), Begun());
}

TEST_F(PointDialog, OpensByADoubleClickOnAPoint) {
  answers.ExpectDriven([&](Stage& dialog) {
    EXPECT_EQ(Number(dialog, "Number1").GetValue(), 192.0);
    Type(dialog, u"180", u"200");
    Press(dialog, "OKButton");
  });
  program.stage.DoubleClick(AtPoint(2));
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(Point(2), (CurvePoint{180, 200}));
  EXPECT_FALSE(View().IsDragging());
  program.stage.MoveBy({40.0f, 0.0f});
  EXPECT_EQ(Point(2), (CurvePoint{180, 200})) << "the point isn't held afterwards";
}

TEST_F(PointDialog, OpensFromThePanelAndForAssistiveSoftware) {
  answers.ExpectDriven([](Stage& dialog) { dialog.Key(KeyboardCode::kEscape); });
  Run("type");
  EXPECT_TRUE(answers.AllUsed());
  answers.ExpectDriven([&](Stage& dialog) {
    EXPECT_EQ(Number(dialog, "Number1").GetValue(), 255.0);
    dialog.Key(KeyboardCode::kEscape);
  });
  EXPECT_TRUE(View().PointNode(3).UI_DoAccessibleAction());
  EXPECT_TRUE(answers.AllUsed());
}

TEST_F(PointDialog, IsWorkedByTheKeyboardAlone) {
  answers.ExpectDriven([&](Stage& dialog) {
    EXPECT_TRUE(Number(dialog, "Number1").UI_HasKeyboardFocus());
    dialog.Key(KeyboardCode::kUp);
    dialog.Tab();
    dialog.Key(KeyboardCode::kUp, ModKey::kShift);
    EXPECT_EQ(Point(1), (CurvePoint{65, 50}));
    dialog.Tab();
    dialog.Key(KeyboardCode::kSpace);
  });
  OpenByEnter();
  EXPECT_EQ(Point(1), (CurvePoint{65, 50}));
}

}  // namespace
}  // namespace playground
