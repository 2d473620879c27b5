#pragma once

#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

#include <functional>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

// Has `draw` draw on a layer of `pixels` device pixels, each of them a unit, whose top left is at `origin` in
// its coordinates, and puts the picture at `place`. False when there is no layer to be had; nothing is drawn
// then.
bool DrawInDevicePixels(moxui::scriber::Scriber& scriber, moxui::RectT<float> const& place,
                        moxui::ExtentT<int> pixels, moxui::PointT<float> origin,
                        std::function<void(moxui::scriber::Scriber&)> const& draw);

}  // namespace playground
