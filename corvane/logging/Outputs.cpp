#include "corvane/logging/Outputs.h"

#include "corvane/logging/Log.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/TerminationSignals.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <pthread.h>
#include <system_error>
#include <utility>

namespace corvane::logging {

namespace {

class Passage {
  public:
    explicit Passage(Gate& gate) : gate_(gate) { gate_.enter(); }
    ~Passage() { gate_.leave(); }
    Passage(const Passage&) = delete;
    Passage& operator=(const Passage&) = delete;

  private:
    Gate& gate_;
};

class Closure {
  public:
    explicit Closure(Gate& gate) : gate_(gate) { gate_.close(); }
    ~Closure() { gate_.open(); }
    Closure(const Closure&) = delete;
    Closure& operator=(const Closure&) = delete;

  private:
    Gate& gate_;
};

}  // namespace

constinit std::atomic<Outputs*> Outputs::current{nullptr};

Outputs& Outputs::shared() {
    Outputs* outputs = current.load();
    if (outputs) return *outputs;
    auto* made = new Outputs;
    if (current.compare_exchange_strong(outputs, made)) return *made;
    delete made;
    return *outputs;
}

void Outputs::atExit() {
    shared().exiting_ = true;
    shared().flush();
}

/// The gate stays closed: what could still be logged could not be written any more.
void Outputs::beforeTermination() {
    Outputs& outputs = shared();
    outputs.changing_.lock();
    outputs.gate_.close();
    outputs.flushAll();
}

/// The parent's outputs are not touched: their threads are not here, and their locks may be held.
void Outputs::inForkedChild() {
    static Outputs* parents [[maybe_unused]] = nullptr;
    detail::hasOutputs = false;
    parents = current.exchange(nullptr);
}

void Outputs::watchTheEnd() {
    static const bool once [[maybe_unused]] = [] {
        std::atexit(atExit);
        ::pthread_atfork(nullptr, nullptr, inForkedChild);
        return true;
    }();
    platform::speakBeforeTermination(beforeTermination);
}

bool Outputs::addIfPossible(Kind kind, const MakeWriter& makeWriter) {
    const bool many = kind == Kind::File;
    auto same = [&](const Entry& entry) { return entry.kind == kind; };
    if (!many && std::any_of(entries_.begin(), entries_.end(), same)) return false;
    try {
        Entry entry{kind, std::make_unique<Output>(makeWriter())};
        watchTheEnd();
        const Closure closed(gate_);
        entries_.push_back(std::move(entry));
        detail::hasOutputs = true;
        return true;
    } catch (const std::system_error& failure) {
        platform::currentConsole().writeLine(
            fmt::format("ERROR: a log output cannot be started: {}", failure.what()));
        return false;
    }
}

void Outputs::add(Kind kind, const MakeWriter& makeWriter) {
    const std::lock_guard lock(changing_);
    addIfPossible(kind, makeWriter);
}

void Outputs::addFile(const platform::URL& directory, const MakeWriter& makeWriter) {
    const std::lock_guard lock(changing_);
    if (addIfPossible(Kind::File, makeWriter) && !fileDirectory_) fileDirectory_ = directory;
}

std::optional<platform::URL> Outputs::fileDirectory() const {
    const std::lock_guard lock(changing_);
    return fileDirectory_;
}

void Outputs::removeAll() {
    const std::lock_guard lock(changing_);
    const Closure closed(gate_);
    detail::hasOutputs = false;
    fileDirectory_.reset();
    entries_.clear();
}

void Outputs::flushAll() {
    for (const Entry& entry : entries_)
        entry.output->flush();
}

void Outputs::post(platform::Instant instant, Level level, std::string_view text) {
    if (Output::isThreadOfOne()) return;
    const Passage passage(gate_);
    for (const Entry& entry : entries_)
        entry.output->post(instant, level, text);
    if (exiting_) flushAll();
}

void Outputs::flush() {
    if (Output::isThreadOfOne()) return;
    const Passage passage(gate_);
    flushAll();
}

}  // namespace corvane::logging
