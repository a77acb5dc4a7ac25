// The host hooks and the default report handler.
#include "corvane/frame/host.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <iostream>
#include <memory>
#include <mutex>
#include <string>

#include "corvane/frame/internal/hooks.h"
#include "corvane/frame/report.h"

namespace corvane {
namespace {

// The hooks are the only state the library keeps outside its objects. They
// are set by the host, usually once, and read on every call.
struct Hooks {
  std::mutex mu;
  std::function<void(const Report&)> report_handler;
  std::string connection_string;
  std::string application_path;
  std::shared_ptr<const StatementObserver> observer;
  std::atomic<bool> observer_installed{false};
};

Hooks& TheHooks() {
  static Hooks hooks;
  return hooks;
}

void DefaultReport(const Report& report) {
  std::cerr << "[" << report.title << "] (" << report.style << ") " << report.text << std::endl;
  if (isatty(STDIN_FILENO)) {
    std::cerr << "Press Enter to continue." << std::endl;
    std::string line;
    std::getline(std::cin, line);
  }
}

std::string LibraryFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&LibraryFolder), &info) == 0 || info.dli_fname == nullptr) {
    return ".";
  }
  std::string path = info.dli_fname;
  const auto slash = path.find_last_of('/');
  return slash == std::string::npos ? std::string(".") : path.substr(0, slash);
}

}  // namespace

void SetReportHandler(std::function<void(const Report&)> handler) {
  Hooks& h = TheHooks();
  std::lock_guard<std::mutex> lock(h.mu);
  h.report_handler = std::move(handler);
}

void ShowReport(const Report& report) {
  Hooks& h = TheHooks();
  std::function<void(const Report&)> handler;
  {
    std::lock_guard<std::mutex> lock(h.mu);
    handler = h.report_handler;
  }
  if (handler) {
    handler(report);
  } else {
    DefaultReport(report);
  }
}

void SetSessionConnectionString(std::string text) {
  Hooks& h = TheHooks();
  std::lock_guard<std::mutex> lock(h.mu);
  h.connection_string = std::move(text);
}

std::string SessionConnectionString() {
  Hooks& h = TheHooks();
  std::lock_guard<std::mutex> lock(h.mu);
  return h.connection_string;
}

void SetApplicationPath(std::string folder) {
  Hooks& h = TheHooks();
  std::lock_guard<std::mutex> lock(h.mu);
  h.application_path = std::move(folder);
}

std::string ApplicationPath() {
  Hooks& h = TheHooks();
  {
    std::lock_guard<std::mutex> lock(h.mu);
    if (!h.application_path.empty()) return h.application_path;
  }
  return LibraryFolder();
}

void SetStatementObserver(StatementObserver observer) {
  Hooks& h = TheHooks();
  std::lock_guard<std::mutex> lock(h.mu);
  if (observer) {
    h.observer = std::make_shared<const StatementObserver>(std::move(observer));
    h.observer_installed = true;
  } else {
    h.observer.reset();
    h.observer_installed = false;
  }
}

namespace internal {

bool ObserverInstalled() { return TheHooks().observer_installed.load(std::memory_order_relaxed); }

void NotifyStatement(StatementKind kind, const std::string& text) {
  if (!ObserverInstalled()) return;
  Hooks& h = TheHooks();
  std::shared_ptr<const StatementObserver> observer;
  {
    std::lock_guard<std::mutex> lock(h.mu);
    observer = h.observer;
  }
  if (observer) (*observer)(kind, text);
}

}  // namespace internal
}  // namespace corvane
