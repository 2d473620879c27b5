#include "TreeRows.h"

#include "TreeRowView.h"

#include <moxui/ui/NodeTree.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;

constexpr std::size_t kMostSpareViews = 64;

}  // namespace

TreeRows::TreeRows(UI_MultiColumnTree& tree) : mTree(tree) {}

TreeRows::~TreeRows() {
  RemoveAll();
}

TreeRows::RowPtr TreeRows::Append(Row* parent) {
  RowPtr row = RowPtr::Adopt(new Row(mTree, parent));
  if (parent == nullptr) {
    mRoots.push_back(row);
    if (!mIsStale) {
      row->mIndex = static_cast<std::int64_t>(mOpen.size());
      mOpen.push_back(row);
    }
    return row;
  }
  parent->mChildren.push_back(row);
  mIsStale = mIsStale || parent->mIsOpened;
  return row;
}

TreeRows::RowList TreeRows::Remove(Row& row) {
  RowList& siblings = row.mParent != nullptr ? row.mParent->mChildren : mRoots;
  auto const place = std::ranges::find(siblings, &row, &RowPtr::Get);
  if (place == siblings.end()) {
    return {};
  }
  RowList removed{*place};
  siblings.erase(place);
  TakeApart(removed);
  return removed;
}

TreeRows::RowList TreeRows::RemoveAll() {
  RowList removed = std::exchange(mRoots, {});
  TakeApart(removed);
  return removed;
}

// One list of all, so that rows nested deeply end without recursion. They are out before their views go: who
// hears that must not find them any more.
void TreeRows::TakeApart(RowList const& rows) {
  RowList all = rows;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!all[i]->mChildren.empty()) {
      RowList const children = std::exchange(all[i]->mChildren, {});
      all.insert(all.end(), children.begin(), children.end());
    }
  }
  for (RowPtr const& row : all) {
    row->mTree = nullptr;
    row->mParent = nullptr;
    row->mIndex = -1;
    row->mIsVisible = false;
    row->mIsSelected = false;
  }
  auto const isGone = [](RowPtr const& row) { return row->mTree == nullptr; };
  std::erase_if(mVisible, isGone);
  std::erase_if(mKept, isGone);
  mIsStale = true;
  for (RowPtr const& row : all) {
    Detach(*row);
  }
}

void TreeRows::Flatten() const {
  if (!std::exchange(mIsStale, false)) {
    return;
  }
  for (RowPtr const& row : mOpen) {
    row->mIndex = -1;
  }
  mOpen.clear();
  std::vector<std::pair<RowList const*, std::size_t>> levels{{&mRoots, 0}};
  while (!levels.empty()) {
    auto& [rows, next] = levels.back();
    if (next == rows->size()) {
      levels.pop_back();
      continue;
    }
    RowPtr const& row = (*rows)[next++];
    row->mIndex = static_cast<std::int64_t>(mOpen.size());
    mOpen.push_back(row);
    if (row->mIsOpened && !row->mChildren.empty()) {
      levels.emplace_back(&row->mChildren, 0);
    }
  }
}

std::int64_t TreeRows::Count() const {
  Flatten();
  return static_cast<std::int64_t>(mOpen.size());
}

TreeRows::Row* TreeRows::Get(std::int64_t index) const {
  return index >= 0 && index < Count() ? mOpen[static_cast<std::size_t>(index)].Get() : nullptr;
}

std::int64_t TreeRows::IndexOf(Row const& row) const {
  Flatten();
  return row.mTree == &mTree ? row.mIndex : -1;
}

TreeRows::RowList TreeRows::All() const {
  RowList all = mRoots;
  for (std::size_t i = 0; i < all.size(); ++i) {
    RowList const& children = all[i]->mChildren;
    all.insert(all.end(), children.begin(), children.end());
  }
  return all;
}

bool TreeRows::IsInUse(Row const& row) {
  ui::NodeTree const* const tree = row.mView ? row.mView->UI_GetTree() : nullptr;
  if (tree == nullptr) {
    return false;
  }
  ui::InputCapture const* const capture = tree->GetCapture();
  IntrusivePtr<ui::UI_Node> const captured = capture != nullptr ? capture->GetNode() : nullptr;
  return row.mView->UI_GetKeyboardFocusLeafNode() != nullptr ||
         (captured && captured->UI_IsSelfOrDescendantOf(row.mView.Get()));
}

TreeRows::RowList TreeRows::Show(std::int64_t first, std::int64_t end, ui::UI_SubView& container) {
  Flatten();
  RowList changed;
  RowList const before = std::exchange(mVisible, {});
  for (RowPtr const& row : before) {
    if (row->mIndex < first || row->mIndex >= end) {
      row->mIsVisible = false;
      changed.push_back(row);
      mKept.push_back(row);
    }
  }
  for (std::int64_t index = first; index < end; ++index) {
    RowPtr const& row = mOpen[static_cast<std::size_t>(index)];
    mVisible.push_back(row);
    if (!std::exchange(row->mIsVisible, true)) {
      changed.push_back(row);
    }
  }
  // Views of rows that have gone are free before those that have come need some.
  for (RowPtr const& row : std::exchange(mKept, {})) {
    if (row->mIsVisible) {
      continue;
    }
    if (IsInUse(*row)) {
      mKept.push_back(row);
    } else {
      Detach(*row);
    }
  }
  for (RowPtr const& row : RowList(mVisible)) {
    if (row->mTree == &mTree) {
      Attach(*row, container);
    }
  }
  return changed;
}

void TreeRows::Attach(Row& row, ui::UI_SubView& container) {
  if (row.mView && row.mView->UI_GetParentNode() == &container) {
    return;
  }
  if (!row.mView && !mSpareViews.empty()) {
    row.mView = std::move(mSpareViews.back());
    mSpareViews.pop_back();
  } else if (!row.mView) {
    row.mView = moxcore::utility::MakeIntrusive<TreeRowView>();
  }
  row.mView->SetRow(&row);
  std::size_t place = container.ChildSize();
  while (place > 0) {
    auto const* const other = static_cast<TreeRowView const*>(container.ChildGet(place - 1).Get());
    if (other->GetRow() == nullptr || other->GetRow()->mIndex < row.mIndex) {
      break;
    }
    --place;
  }
  container.ChildInsert(place, row.mView);
}

void TreeRows::Detach(Row& row) {
  IntrusivePtr<TreeRowView> const view = row.mView;
  if (!view) {
    return;
  }
  if (ui::UI_Node* const parent = view->UI_GetParentNode()) {
    parent->UI_GetContainer()->ChildRemove(view.Get());
  }
  if (row.mTree == nullptr || !row.HoldsNodes()) {
    row.DropCells();
    view->SetRow(nullptr);
    row.mView = nullptr;
    if (mSpareViews.size() < kMostSpareViews) {
      mSpareViews.push_back(view);
    }
  }
}

void TreeRows::PlaceViews(float pitch, float width) const {
  for (RowList const* const rows : {&mVisible, &mKept}) {
    for (RowPtr const& row : *rows) {
      if (row->mView) {
        row->mView->UI_SetLocalRectF({0.0f, static_cast<float>(row->mIndex) * pitch, width, pitch});
      }
    }
  }
}

}  // namespace moxui::controls
