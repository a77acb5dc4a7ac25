// The pool of idle connections and the connections shared within a thread.
#include "corvane/frame/internal/session_pool.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include "corvane/frame/internal/link.h"

namespace corvane::internal {
namespace {

using Clock = std::chrono::steady_clock;

class Pool : public std::enable_shared_from_this<Pool> {
 public:
  Pool() = default;
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;
  ~Pool() {
    {
      std::lock_guard<std::mutex> lock(mu_);
      stopping_ = true;
      wanted_.clear();
    }
    changed_.notify_all();
    if (dialler_.joinable()) dialler_.join();
  }

  SessionPoolOptions options() {
    std::lock_guard<std::mutex> lock(mu_);
    return options_;
  }

  // A new open connection for key. With spares, its link replaces a wire it
  // gives up by one from this pool (Refill) and asks for the next (Want);
  // the connection keeps that for its life, in the pool and out of it.
  std::unique_ptr<Connection> Open(const std::string& key, bool spares) {
    auto connection = std::make_unique<Connection>();
    connection->SetConnectionString(key);
    connection->Open();
    if (spares) {
      connection->link().SetRefill(
          [weak = weak_from_this(), key](Link& link) {
            const std::shared_ptr<Pool> p = weak.lock();
            return p && p->Refill(key, link);
          },
          [weak = weak_from_this(), key] {
            if (const std::shared_ptr<Pool> p = weak.lock()) p->Want(key);
          });
    }
    return connection;
  }

  void Configure(const SessionPoolOptions& options) {
    std::vector<std::unique_ptr<Connection>> closing;
    {
      std::unique_lock<std::mutex> lock(mu_);
      // A spare asked for under the old options is not dialled; one being
      // dialled is waited for, so that what is idle afterwards is settled.
      wanted_.clear();
      changed_.wait(lock, [&] { return !dialling_; });
      options_ = options;
      if (!options_.enabled) options_.max_idle = 0;
      Trim(Clock::now(), &closing);
    }
  }

  // An idle connection for key that is still alive, or null.
  std::unique_ptr<Connection> Take(const std::string& key) {
    std::vector<std::unique_ptr<Connection>> closing;
    while (true) {
      std::unique_ptr<Connection> found;
      {
        std::lock_guard<std::mutex> lock(mu_);
        Trim(Clock::now(), &closing);
        const auto it = std::find_if(idle_.rbegin(), idle_.rend(),
                                     [&](const Idle& i) { return i.key == key; });
        if (it == idle_.rend()) return nullptr;
        found = std::move(it->connection);
        idle_.erase(std::next(it).base());
      }
      // A connection the server has ended is not handed out.
      if (found->link().Alive()) return found;
      closing.push_back(std::move(found));
    }
  }

  void Give(std::string key, std::unique_ptr<Connection> connection) {
    std::vector<std::unique_ptr<Connection>> closing;
    std::lock_guard<std::mutex> lock(mu_);
    const Clock::time_point now = Clock::now();
    idle_.push_back(Idle{std::move(key), std::move(connection), now});
    Trim(now, &closing);
  }

  // Hands link an idle wire for key in place of the one it gave up. Want
  // then has another dialled in the background for the next time: a rowset
  // that gives up its wire (a whole table left unread) does so again and
  // again on the same text, and its next statement should not wait for a
  // dial.
  bool Refill(const std::string& key, Link& link) {
    std::unique_ptr<Connection> spare = Take(key);
    if (!spare) return false;
    link.TakeWire(spare->link());
    return true;
  }

  // Asks the dialler for one idle connection more for key, unless one is
  // asked for or being dialled already, or the pool keeps nothing idle.
  void Want(const std::string& key) noexcept {
    try {
      WantOrThrow(key);
    } catch (...) {
      // No spare (no memory, no thread): the next give-up dials in place.
    }
  }

  void Settle() {
    std::unique_lock<std::mutex> lock(mu_);
    changed_.wait(lock, [&] { return wanted_.empty() && !dialling_; });
  }

  std::size_t idle() {
    std::lock_guard<std::mutex> lock(mu_);
    return idle_.size();
  }

 private:
  struct Idle {
    std::string key;
    std::unique_ptr<Connection> connection;
    Clock::time_point since;
  };

  // Moves what has been idle too long, and what is over the limit (the
  // longest idle first), to closing; the caller closes them outside the lock.
  void Trim(Clock::time_point now, std::vector<std::unique_ptr<Connection>>* closing) {
    while (!idle_.empty() && (idle_.size() > options_.max_idle ||
                              now - idle_.front().since >= options_.idle_timeout)) {
      closing->push_back(std::move(idle_.front().connection));
      idle_.pop_front();
    }
  }

  void WantOrThrow(const std::string& key) {
    {
      std::lock_guard<std::mutex> lock(mu_);
      if (stopping_ || !options_.enabled || options_.max_idle == 0) return;
      if ((dialling_ && dialling_key_ == key) ||
          std::find(wanted_.begin(), wanted_.end(), key) != wanted_.end()) {
        return;
      }
      wanted_.push_back(key);
      if (!dialler_.joinable()) dialler_ = std::thread([this] { Dialler(); });
    }
    changed_.notify_all();
  }

  // The dialler's thread: opens the connections asked for and puts them
  // among the idle ones. One that cannot be opened is not retried: the
  // statement that needs a wire dials one itself and reports what fails.
  void Dialler() {
    std::unique_lock<std::mutex> lock(mu_);
    while (true) {
      changed_.wait(lock, [&] { return stopping_ || !wanted_.empty(); });
      if (stopping_) return;
      dialling_key_ = std::move(wanted_.front());
      wanted_.pop_front();
      dialling_ = true;
      lock.unlock();
      std::unique_ptr<Connection> connection;
      try {
        connection = Open(dialling_key_, true);
      } catch (...) {
      }
      std::vector<std::unique_ptr<Connection>> closing;
      lock.lock();
      if (connection && !stopping_ && options_.enabled) {
        const Clock::time_point now = Clock::now();
        idle_.push_back(Idle{dialling_key_, std::move(connection), now});
        Trim(now, &closing);
      }
      dialling_ = false;
      changed_.notify_all();
      lock.unlock();
      closing.clear();
      connection.reset();
      lock.lock();
    }
  }

  std::mutex mu_;
  std::condition_variable changed_;
  SessionPoolOptions options_;
  std::deque<Idle> idle_;  // the most recently returned last
  std::deque<std::string> wanted_;  // keys the dialler is asked to open one for
  std::string dialling_key_;
  bool dialling_ = false;
  bool stopping_ = false;
  std::thread dialler_;  // started with the first spare asked for
};

// The pool lives as long as anything can still return a connection to it.
std::shared_ptr<Pool> ThePool() {
  static const std::shared_ptr<Pool> pool = std::make_shared<Pool>();
  return pool;
}

// Gives a connection back to the pool when its last holder lets go of it.
struct ReturnToPool {
  std::weak_ptr<Pool> pool;
  std::string key;
  bool pooled;
  void operator()(Connection* c) const {
    std::unique_ptr<Connection> connection(c);
    if (!pooled || connection->State() != 1 || !connection->link().Alive()) return;
    if (const std::shared_ptr<Pool> p = pool.lock()) p->Give(key, std::move(connection));
  }
};

}  // namespace

std::shared_ptr<Connection> AcquireConnection(const std::string& text) {
  const std::shared_ptr<Pool> pool = ThePool();
  const SessionPoolOptions options = pool->options();
  // The connections the live sessions of this thread hold, by text.
  thread_local std::unordered_map<std::string, std::weak_ptr<Connection>> held;
  if (options.share_within_thread) {
    if (const auto it = held.find(text); it != held.end()) {
      if (std::shared_ptr<Connection> c = it->second.lock(); c && c->State() == 1) return c;
    }
  }
  std::unique_ptr<Connection> connection = options.enabled ? pool->Take(text) : nullptr;
  if (!connection) connection = pool->Open(text, options.enabled);
  std::shared_ptr<Connection> shared(connection.release(),
                                     ReturnToPool{pool, text, options.enabled});
  if (options.share_within_thread) {
    std::erase_if(held, [](const auto& entry) { return entry.second.expired(); });
    held[text] = shared;
  }
  return shared;
}

bool ConnectionsAreKept() {
  const SessionPoolOptions options = ThePool()->options();
  return options.enabled || options.share_within_thread;
}

std::size_t IdleConnections() { return ThePool()->idle(); }

void SettleSpares() { ThePool()->Settle(); }

}  // namespace corvane::internal

namespace corvane {

void SetSessionPool(const SessionPoolOptions& options) {
  internal::ThePool()->Configure(options);
}

SessionPoolOptions GetSessionPool() { return internal::ThePool()->options(); }

}  // namespace corvane
