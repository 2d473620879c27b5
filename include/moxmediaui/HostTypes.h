#pragma once

#include <moxcore/string/ImmutableString.h>
#include <moxcore/string/String.h>
#include <moxcore/utility/Guid.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedWeakPtr.h>
#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TickTime.h>
#include <moxmediatypes/TimeDisplay.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/Flags.h>
#include <moxui/geometry/PaddingT.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/geometry/ScaleMatrixT.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::scriber {
class Scriber;
}

/// The host's value types and smart pointers under the names by which this library's classes use them.
namespace moxmediaui {

using moxui::ColorRGBA;
using moxui::ColorRGBAFixed;
using moxui::ColorRGBAOptional;
using moxui::ExtentT;
using moxui::Flags;
using moxui::PaddingT;
using moxui::PointT;
using moxui::RectT;
using moxui::ScaleMatrixT;

using moxmediatypes::FrameRate;
using moxmediatypes::TickTime;
using moxmediatypes::TimeDisplay;

using moxcore::Guid;
using moxcore::ImmutableString;
using moxcore::Utf16String;
using moxcore::Utf8String;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::RefCountedWeakPtr;

using moxui::scriber::BrushP;
using moxui::scriber::BufferImageP;
using moxui::scriber::FontP;
using moxui::scriber::ImageInterface;
using moxui::scriber::ImageP;
using moxui::scriber::PathP;
using moxui::scriber::PenP;
using moxui::scriber::Scriber;
using moxui::scriber::SupplierInterface;
using moxui::scriber::SurfaceInterface;
using moxui::scriber::SurfaceP;
using moxui::scriber::TextAlignment;

}  // namespace moxmediaui
