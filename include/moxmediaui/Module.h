#pragma once

namespace moxui::scriber {
class SupplierInterface;
class SurfaceInterface;
}  // namespace moxui::scriber
namespace moxui::utility {
class ImageProvider;
class ResourceManager;
}  // namespace moxui::utility

namespace moxmediaui {

/// Starts the library: stores `supplier` (lent: the host keeps it alive) and makes the services below; adds
/// the translations of the library's and the host's texts to the localizer. Calls nest; a nested one only
/// counts, its argument is ignored. For use on the UI thread, like all of this.
void Initialize(moxui::scriber::SupplierInterface const* supplier);

/// Undoes one Initialize; the last one ends the services. All views and dialogs of the library must be gone
/// by then. A Terminate too many unbalances the count: the next Initialize only evens it out.
void Terminate();

/// The services, valid from the first Initialize to the last Terminate; null otherwise.
moxui::scriber::SupplierInterface const* GetDrawSupplier();
/// The library's own resources, not those of the host.
moxui::utility::ResourceManager* GetResourceManager();
/// Images out of the library's own resources.
moxui::utility::ImageProvider* GetModuleImageProvider();

namespace utility {

/// The span to draw again when one span of pixels is replaced by another: what was added or removed when an
/// edge stands still, else both with what lies between. A width of 0 is no span.
void GetUpdateRange(int oldStart, int oldWidth, int newStart, int newWidth, int& updateStart,
                    int& updateWidth);

/// Asks that images replace what lies beneath them. Does nothing here, where opaque images do so anyway.
void SetBlendModeToCopy(moxui::scriber::SurfaceInterface* surface, bool copy);

}  // namespace utility
}  // namespace moxmediaui
