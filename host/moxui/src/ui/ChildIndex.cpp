#include "ChildIndex.h"

#include "NodeAccess.h"

#include <algorithm>
#include <cmath>

namespace moxui::ui {

namespace {

constexpr int kMaxCellsPerChild = 16;
constexpr int kMaxSide = 512;

int Clamped(float cell, int count) {
  if (!(cell > 0)) {
    return 0;
  }
  return cell >= static_cast<float>(count) ? count - 1 : static_cast<int>(cell);
}

bool Meets(RectT<float> const& a, RectT<float> const& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

}  // namespace

ChildIndex::ChildIndex(UI_Container::Children const& children) {
  for (auto const& child : children) {
    mArea = mArea.Union(NodeAccess::BoundsInParent(*child));
  }
  // Cells follow the shape of the area, so that a long row of children gets a row of cells.
  float const count = std::max<float>(static_cast<float>(children.size()), 1);
  float const width = std::max(mArea.width, 1.0F);
  float const height = std::max(mArea.height, 1.0F);
  mColumns = Clamped(std::ceil(std::sqrt(count * width / height)), kMaxSide) + 1;
  mRows = Clamped(std::ceil(count / static_cast<float>(mColumns)), kMaxSide) + 1;
  mCellWidth = width / static_cast<float>(mColumns);
  mCellHeight = height / static_cast<float>(mRows);
  mGrid.resize(static_cast<std::size_t>(mColumns) * static_cast<std::size_t>(mRows));
  for (auto const& child : children) {
    Add(*child);
  }
  mAsideAtBuild = mAside.size();
}

void ChildIndex::Add(UI_Node& child) {
  Cells const cells = CellsOf(NodeAccess::BoundsInParent(child));
  mPlaces[&child] = cells;
  Insert(child, cells);
}

void ChildIndex::Remove(UI_Node& child) {
  if (auto const place = mPlaces.find(&child); place != mPlaces.end()) {
    Take(child, place->second);
    mPlaces.erase(place);
  }
}

void ChildIndex::Update(UI_Node& child) {
  auto const place = mPlaces.find(&child);
  if (place == mPlaces.end()) {
    return;
  }
  Cells const cells = CellsOf(NodeAccess::BoundsInParent(child));
  if (cells != place->second) {
    Take(child, place->second);
    place->second = cells;
    Insert(child, cells);
  }
}

std::vector<UI_Node*> ChildIndex::Find(RectT<float> const& area) const {
  std::vector<UI_Node*> found;
  auto const take = [&](UI_Node* child) {
    if (Meets(NodeAccess::BoundsInParent(*child), area)) {
      found.push_back(child);
    }
  };
  std::ranges::for_each(mAside, take);
  if (Meets(mArea, area)) {
    int const right = Clamped((area.Right() - mArea.left) / mCellWidth, mColumns);
    int const bottom = Clamped((area.Bottom() - mArea.top) / mCellHeight, mRows);
    for (int row = Clamped((area.top - mArea.top) / mCellHeight, mRows); row <= bottom; ++row) {
      for (int column = Clamped((area.left - mArea.left) / mCellWidth, mColumns); column <= right; ++column) {
        std::ranges::for_each(mGrid[CellIndex(column, row)], take);
      }
    }
  }
  std::ranges::sort(found, {}, [](UI_Node* child) { return NodeAccess::Order(*child); });
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

std::vector<UI_Node*> ChildIndex::FindAt(PointT<float> point) const {
  std::vector<UI_Node*> found;
  auto const take = [&](UI_Node* child) {
    if (NodeAccess::BoundsInParent(*child).Contains(point)) {
      found.push_back(child);
    }
  };
  std::ranges::for_each(mAside, take);
  if (mArea.Contains(point)) {
    int const column = Clamped((point.x - mArea.left) / mCellWidth, mColumns);
    int const row = Clamped((point.y - mArea.top) / mCellHeight, mRows);
    std::ranges::for_each(mGrid[CellIndex(column, row)], take);
  }
  std::ranges::sort(found, {}, [](UI_Node* child) { return NodeAccess::Order(*child); });
  return found;
}

bool ChildIndex::IsWorn() const {
  return mAside.size() > 2 * mAsideAtBuild + 16 + mPlaces.size() / 16;
}

ChildIndex::Cells ChildIndex::CellsOf(RectT<float> const& bounds) const {
  if (!mArea.Contains(bounds)) {
    return {};
  }
  Cells cells;
  cells.left = Clamped((bounds.left - mArea.left) / mCellWidth, mColumns);
  cells.top = Clamped((bounds.top - mArea.top) / mCellHeight, mRows);
  cells.right = Clamped((bounds.Right() - mArea.left) / mCellWidth, mColumns);
  cells.bottom = Clamped((bounds.Bottom() - mArea.top) / mCellHeight, mRows);
  if ((cells.right - cells.left + 1) * (cells.bottom - cells.top + 1) > kMaxCellsPerChild) {
    return {};
  }
  return cells;
}

void ChildIndex::Insert(UI_Node& child, Cells const& cells) {
  if (cells.right < 0) {
    mAside.push_back(&child);
    return;
  }
  for (int row = cells.top; row <= cells.bottom; ++row) {
    for (int column = cells.left; column <= cells.right; ++column) {
      mGrid[CellIndex(column, row)].push_back(&child);
    }
  }
}

void ChildIndex::Take(UI_Node& child, Cells const& cells) {
  if (cells.right < 0) {
    std::erase(mAside, &child);
    return;
  }
  for (int row = cells.top; row <= cells.bottom; ++row) {
    for (int column = cells.left; column <= cells.right; ++column) {
      std::erase(mGrid[CellIndex(column, row)], &child);
    }
  }
}

std::size_t ChildIndex::CellIndex(int column, int row) const {
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(mColumns) +
         static_cast<std::size_t>(column);
}

ChildIndex* NodeAccess::MakeIndex(UI_Container& container) {
  if (!container.mIndex || container.mIndex->IsWorn()) {
    container.mIndex = std::make_unique<ChildIndex>(container.mChildren);
  }
  return container.mIndex.get();
}

}  // namespace moxui::ui
