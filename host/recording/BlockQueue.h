#pragma once

#include "host/instruments/Acquisition.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <variant>

namespace ko {

/// What an instrument has delivered.
struct Delivery {
    struct Triggered {
        std::int64_t sample;
    };
    struct Ended {
        std::int64_t next;
        std::string reason;
    };

    std::size_t instrument = 0; ///< in the plan
    std::variant<Triggered, Block, Ended> what;
};

/// The deliveries of all instruments on their way to the file. Its members can be called on any thread.
class BlockQueue {
public:
    /// Takes blocks of up to `bytes` in total, and always one.
    explicit BlockQueue(std::size_t bytes) : capacity_(bytes) {}

    /// Adds a delivery; waits while there is no room for a block.
    void put(Delivery delivery);
    /// Adds a delivery, except a block for which there is no room.
    void offer(Delivery delivery);
    /// From now on there is room for every block.
    void open();

    /// Removes the oldest delivery; waits until there is one, or until this time, or until `wake` is called.
    std::optional<Delivery> take(std::chrono::steady_clock::time_point until);
    void wake();

private:
    [[nodiscard]] bool hasRoom(std::size_t bytes) const;
    void add(Delivery&& delivery, std::size_t bytes);

    std::mutex mutex_;
    std::condition_variable added_, removed_;
    std::deque<Delivery> deliveries_;
    std::size_t capacity_;
    std::size_t bytes_ = 0;
    bool isOpen_ = false;
    bool isWoken_ = false;
};

} // namespace ko
