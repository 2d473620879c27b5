#pragma once

#include <moxui/scriber/ScriberTypes.h>
#include <moxui/skins/ButtonComponents.h>
#include <moxui/skins/TextTruncation.h>

namespace moxui::controls {

using ControlAlignment = scriber::TextAlignment;
using skins::ButtonComponents;
using skins::ButtonVariant;
using skins::ComponentDensity;
using skins::ComponentSize;
using skins::TextTruncation;

enum class Orientation { kHorizontal = 0, kVertical = 1 };

}  // namespace moxui::controls
