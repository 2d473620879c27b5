#include "QtApplication.h"

#include "QtAccessible.h"
#include "QtFonts.h"
#include "QtTextEditor.h"
#include "QtWindow.h"
#include "RuntimeDirectory.h"

#include <moxcore/threads/MainThread.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/ui/UI_NodeManager.h>

#include <QTimer>
#include <utility>

namespace moxui::platform {

namespace {

Application* gApplication = nullptr;

}  // namespace

std::unique_ptr<Application> Application::Create(int& argc, char** argv) {
  if (gApplication != nullptr) {
    return nullptr;
  }
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  qt::ProvideRuntimeDirectory();
  auto application = std::make_unique<qt::QtApplication>(argc, argv);
  gApplication = application.get();
  return application;
}

Application* Application::Get() {
  return gApplication;
}

}  // namespace moxui::platform

namespace moxui::qt {

QtApplication::QtApplication(int& argc, char** argv)
    : mApplication(argc, argv),
      mImages(utility::GetResourceManager(), scriber::GetRasterSupplier(), nullptr) {
  mClock.start();
  QApplication::setFont(HouseFont());
  QApplication::setQuitOnLastWindowClosed(true);
  InstallAccessibility();
  ui::UI_NodeManager::Get(true)->SetDefaultDrawSupplier(scriber::GetRasterSupplier());
  ui::UI_NodeManager::Get(true)->SetImageProvider(&mImages);
  moxcore::threads::SetMainThreadPoster(
      [this](std::function<void()> function) { PostToMainThread(std::move(function)); });
}

QtApplication::~QtApplication() {
  moxcore::threads::SetMainThreadPoster({});
  ui::UI_NodeManager::Get(true)->SetImageProvider(nullptr);
  ui::UI_NodeManager::Get(true)->SetDefaultDrawSupplier(nullptr);
  platform::gApplication = nullptr;
}

void QtApplication::CatchException(std::exception_ptr exception) {
  if (!mCaught) {
    mCaught = std::move(exception);
  }
  for (QEventLoop* const loop : mLoops) {
    loop->exit();
  }
  // Outside of the main loop this would have all later loops end at once.
  if (mIsRunning) {
    QCoreApplication::exit(1);
  }
}

void QtApplication::ThrowCaught() {
  if (auto const caught = std::exchange(mCaught, nullptr)) {
    std::rethrow_exception(caught);
  }
}

QtApplication::LoopScope::LoopScope(QtApplication& application, QEventLoop& loop)
    : mApplication(application) {
  mApplication.mLoops.push_back(&loop);
}

QtApplication::LoopScope::~LoopScope() {
  mApplication.mLoops.pop_back();
}

std::unique_ptr<platform::Window> QtApplication::CreateWindow(platform::WindowOptions const& options) {
  return std::make_unique<QtWindow>(*this, options);
}

int QtApplication::Run() {
  mIsRunning = true;
  int const code = QApplication::exec();
  mIsRunning = false;
  ThrowCaught();
  return code;
}

void QtApplication::Quit(int code) {
  QCoreApplication::exit(code);
}

void QtApplication::ProcessEvents() {
  // A timer of no length counts as one event: painting is asked for by such a one and then by another.
  for (int round = 0; round < 3; ++round) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  ThrowCaught();
}

void QtApplication::RunGuarded(std::function<void()> const& function) {
  try {
    function();
  } catch (...) {
    CatchException(std::current_exception());
  }
}

void QtApplication::PostToMainThread(std::function<void()> function) {
  QMetaObject::invokeMethod(
      &mApplication, [this, function = std::move(function)] { RunGuarded(function); }, Qt::QueuedConnection);
}

void QtApplication::PostDelayed(int milliseconds, std::function<void()> function) {
  QTimer::singleShot(milliseconds, &mApplication,
                     [this, function = std::move(function)] { RunGuarded(function); });
}

scriber::SupplierInterface const* QtApplication::GetDrawSupplier() {
  return scriber::GetRasterSupplier();
}

std::unique_ptr<platform::TextEditor> QtApplication::NewTextEditor(bool multiLine) {
  return qt::NewTextEditor(multiLine);
}

}  // namespace moxui::qt
