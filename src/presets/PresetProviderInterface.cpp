#include <moxmediaui/PresetProviderInterface.h>

namespace moxmediaui {

PresetProviderInterface::~PresetProviderInterface() = default;

}  // namespace moxmediaui
