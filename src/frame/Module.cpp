#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxmediaui/Module.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/resources/ResourceManager.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace moxmediaui {

namespace {

// Plain pointers on purpose: what nobody terminated must not be destroyed at the program's end, when what it
// draws with is gone already.
std::uint32_t sInitCount = 0;
moxui::scriber::SupplierInterface const* sDrawSupplier = nullptr;
moxui::utility::ResourceManager* sResourceManager = nullptr;
moxui::utility::ImageProvider* sModuleImageProvider = nullptr;

}  // namespace

void Initialize(moxui::scriber::SupplierInterface const* supplier) {
  if (sInitCount != 0) {
    ++sInitCount;
    return;
  }
  sDrawSupplier = supplier;
  auto const module = moxcore::utility::ModuleHandle::FromAddress(&sInitCount);
  moxcore::config::AddCataloguesFromModule(module);
  auto resources = std::make_unique<moxui::utility::OS_ResourceManager>(module);
  // One is there only if an earlier Initialize failed half-way.
  delete std::exchange(sResourceManager, resources.release());
  sModuleImageProvider =
      std::make_unique<moxui::utility::ImageProvider>(GetResourceManager(), GetDrawSupplier(), nullptr)
          .release();
  ++sInitCount;
}

void Terminate() {
  // The count wraps on purpose: one Terminate too many is evened out by the next Initialize.
  if (sInitCount-- != 1) {
    return;
  }
  // The provider borrows both others.
  delete std::exchange(sModuleImageProvider, nullptr);
  delete std::exchange(sResourceManager, nullptr);
  sDrawSupplier = nullptr;
}

moxui::scriber::SupplierInterface const* GetDrawSupplier() {
  return sDrawSupplier;
}
moxui::utility::ResourceManager* GetResourceManager() {
  return sResourceManager;
}
moxui::utility::ImageProvider* GetModuleImageProvider() {
  return sModuleImageProvider;
}

}  // namespace moxmediaui
