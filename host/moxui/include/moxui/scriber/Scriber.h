#pragma once

#include <moxui/scriber/ScriberTypes.h>

namespace moxui::scriber {

/// What is handed to a drawing function: the supplier to make things with and the surface to draw them on.
/// Both are borrowed for the time of the call.
class Scriber {
 public:
  Scriber(SupplierInterface const* supplier, SurfaceInterface* surface)
      : mSupplier(supplier), mSurface(surface) {}

  SupplierInterface const* GetSupplier() const { return mSupplier; }
  SurfaceInterface* GetSurface() const { return mSurface; }

 private:
  SupplierInterface const* mSupplier;
  SurfaceInterface* mSurface;
};

}  // namespace moxui::scriber
