#include "corvane/platform/UserDefaults.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/PropertyListValue.h"
#include "corvane/platform/RunLoop.h"
#include "corvane/platform/UserDefaultsFile.h"
#include "corvane/platform/UserDefaultsLocation.h"

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <utility>
#include <vector>

namespace corvane::platform {

namespace {

constexpr double kSecondsUntilRetry = 10;

using Settings = UserDefaultsFile::Settings;

Value valueIn(const Settings& settings, std::string_view key) {
    const auto entry = settings.find(key);
    return entry == settings.end() ? Value() : entry->second;
}

void requireStorable(std::string_view key, const Value& value) {
    if (UserDefaults::canStore(value)) return;
    throw std::invalid_argument("the value for '" + std::string(key) + "' cannot be a setting");
}

}  // namespace

class UserDefaults::State : public std::enable_shared_from_this<UserDefaults::State> {
    struct Change {
        Value value;
        /// What the file had when the value was made of it. Where it has another value by now, that
        /// one stays.
        std::optional<Value> source;
    };

    /// What there is to report goes to the console without the lock.
    class Hold {
      public:
        explicit Hold(State& state) : state_(state), lock_(state.mutex_) {}
        ~Hold() {
            const auto reports = std::exchange(state_.reports_, {});
            lock_.unlock();
            for (const auto& line : reports)
                currentConsole().writeLine(line);
        }

      private:
        State& state_;
        std::unique_lock<std::mutex> lock_;
    };

  public:
    explicit State(std::string path) : file_(std::move(path)) {}

    Value value(std::string_view key) const {
        std::lock_guard lock(mutex_);
        if (Value own = ownValue(key); !own.isNull()) return own;
        const auto fallback = fallbacks_.find(key);
        return fallback == fallbacks_.end() ? Value() : fallback->second;
    }

    void set(std::string_view key, const Value& value) {
        std::lock_guard lock(mutex_);
        changes_.insert_or_assign(std::string(key), Change{value, std::nullopt});
    }

    void writeBack(std::string_view key, const Value& value) {
        std::lock_guard lock(mutex_);
        if (const auto change = changes_.find(key); change != changes_.end()) {
            change->second.value = value;
        } else if (const Value source = valueIn(settings_, key); source != value) {
            changes_.emplace(key, Change{value, source});
        }
    }

    void registerFallback(std::string_view key, const Value& value) {
        std::lock_guard lock(mutex_);
        fallbacks_.insert_or_assign(std::string(key), value);
    }

    void reload() {
        Hold hold(*this);
        auto failure = write();
        auto unreadable = file_.read(settings_);
        settle(failure ? failure : unreadable);
    }

    /// Whether what is set may be written now.
    bool isOutsideBatches() const {
        std::lock_guard lock(mutex_);
        return batches_ == 0;
    }
    void beginBatch() {
        std::lock_guard lock(mutex_);
        ++batches_;
    }
    void endBatch() {
        std::lock_guard lock(mutex_);
        --batches_;
    }

    void writeAndReport() {
        Hold hold(*this);
        if (!changes_.empty()) settle(write());
    }

    std::optional<Error> synchronize() {
        Hold hold(*this);
        if (changes_.empty()) return std::nullopt;
        auto failure = write();
        if (failure) reported_ = failure->message;
        settle(failure);
        return failure;
    }

  private:
    Value ownValue(std::string_view key) const {
        const auto change = changes_.find(key);
        return change == changes_.end() ? valueIn(settings_, key) : change->second.value;
    }

    std::optional<Error> write() {
        if (changes_.empty()) return std::nullopt;
        const auto apply = [this](Settings& settings) {
            for (const auto& [key, change] : changes_) {
                if (change.source && valueIn(settings, key) != *change.source) continue;
                settings.erase(key);
                if (!change.value.isNull()) settings.emplace(key, change.value);
            }
        };
        auto failure = file_.update(settings_, apply);
        if (!failure) changes_.clear();
        return failure;
    }

    /// Reports what happened, and sees to it that what could not be written is tried again.
    void settle(const std::optional<Error>& failure) {
        if (auto place = file_.takePlaceOfDamaged()) {
            reports_.push_back("ERROR: the settings in '" + file_.path() +
                               "' are damaged; they are kept as '" + *place +
                               "', and the defaults apply");
        }
        const std::string reason = failure ? failure->message : "";
        if (failure && reason != reported_) reports_.push_back("ERROR: settings: " + reason);
        reported_ = reason;
        if (!changes_.empty() && !retries_ && mainRunLoop().isInTurn()) retrySoon();
    }

    void retrySoon() {
        retries_ = true;
        mainRunLoop().callAfterDelay(kSecondsUntilRetry, nullptr, [weak = weak_from_this()] {
            const auto state = weak.lock();
            if (!state) return;
            {
                std::lock_guard lock(state->mutex_);
                state->retries_ = false;
            }
            state->writeAndReport();
        });
    }

    mutable std::mutex mutex_;
    UserDefaultsFile file_;
    Settings settings_;                                   ///< as last read or written
    std::map<std::string, Change, std::less<>> changes_;  ///< not written yet
    std::map<std::string, Value, std::less<>> fallbacks_;
    unsigned batches_ = 0;
    bool retries_ = false;
    std::string reported_;  ///< the reason why the file cannot be used
    std::vector<std::string> reports_;
};

UserDefaults::UserDefaults(std::string path) : state_(std::make_shared<State>(std::move(path))) {
    state_->reload();
}

UserDefaults::~UserDefaults() {
    state_->writeAndReport();
}

bool UserDefaults::canStore(const Value& value) {
    return value.isNull() || isPropertyListValue(ValueMap{{{"", value}}});
}

Value UserDefaults::value(std::string_view key) const {
    return state_->value(key);
}

void UserDefaults::setValue(std::string_view key, const Value& value) {
    requireStorable(key, value);
    state_->set(key, value);
    writeSoon();
}

void UserDefaults::writeBack(std::string_view key, const Value& value) {
    requireStorable(key, value);
    state_->writeBack(key, value);
    writeSoon();
}

void UserDefaults::registerFallbacks(const std::map<std::string, Value, std::less<>>& fallbacks) {
    for (const auto& [key, value] : fallbacks)
        requireStorable(key, value);
    for (const auto& [key, value] : fallbacks)
        state_->registerFallback(key, value);
}

void UserDefaults::reload() {
    state_->reload();
}

std::optional<Error> UserDefaults::synchronize() {
    return state_->synchronize();
}

void UserDefaults::writeSoon() {
    if (!state_->isOutsideBatches()) return;
    if (!mainRunLoop().isInTurn()) return state_->writeAndReport();
    const auto write = [weak = std::weak_ptr(state_)] {
        if (const auto state = weak.lock()) state->writeAndReport();
    };
    mainRunLoop().callAtEndOfTurn(write);
    // Should this turn run a loop of its own, as that of a dialog, its end may be far.
    mainRunLoop().post(write);
}

UserDefaults::Batch::Batch(UserDefaults& defaults) : defaults_(defaults) {
    defaults_.state_->beginBatch();
}

UserDefaults::Batch::~Batch() {
    defaults_.state_->endBatch();
    defaults_.writeSoon();
}

UserDefaults& UserDefaults::ofApplication() {
    // Never destroyed: others may still ask as the process exits.
    static auto* const defaults = [] {
        currentConsole();  // exists before the exit handler, and so outlives it
        std::atexit([] { ofApplication().state_->writeAndReport(); });
        return new UserDefaults(userDefaultsFilePath().value_or(""));
    }();
    return *defaults;
}

std::atomic<UserDefaults*>& standInInForce() {
    static std::atomic<UserDefaults*> standIn{nullptr};
    return standIn;
}

UserDefaults& UserDefaults::standard() {
    UserDefaults* const standIn = standInInForce();
    return standIn ? *standIn : ofApplication();
}

}  // namespace corvane::platform
