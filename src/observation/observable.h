#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace mirvane {

namespace detail {

struct Observers {
  std::vector<std::pair<std::uint64_t, std::function<void()>>> entries;
  std::uint64_t nextId = 0;
};

}  // namespace detail

/// Keeps one observer registered for as long as it lives. It may outlive what it observes.
class [[nodiscard]] Subscription {
 public:
  Subscription() = default;
  Subscription(std::weak_ptr<detail::Observers> observers, std::uint64_t id)
      : observers_(std::move(observers)), id_(id) {}
  Subscription(Subscription&& other) noexcept { swap(other); }
  Subscription& operator=(Subscription&& other) noexcept {
    Subscription taken(std::move(other));
    swap(taken);
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() {
    if (const auto observers = observers_.lock()) {
      std::erase_if(observers->entries, [&](const auto& entry) { return entry.first == id_; });
    }
  }

 private:
  void swap(Subscription& other) noexcept {
    std::swap(observers_, other.observers_);
    std::swap(id_, other.id_);
  }

  std::weak_ptr<detail::Observers> observers_;
  std::uint64_t id_ = 0;
};

/// Registers observers of one field and announces its changes to them, in order of registration.
/// An observer may subscribe and unsubscribe, itself included, while it is being called, and even
/// destroy what announces.
class ObservationRegistrar {
 public:
  Subscription subscribe(std::function<void()> onChange) const {
    const std::uint64_t id = observers_->nextId++;
    observers_->entries.emplace_back(id, std::move(onChange));
    return {observers_, id};
  }

  void announce() const {
    if (observers_->entries.empty()) return;
    // Kept here: an observer may destroy the field that announces.
    const auto observers = observers_;
    const auto current = observers->entries;
    for (const auto& entry : current) {
      if (isRegistered(*observers, entry.first)) entry.second();
    }
  }

 private:
  static bool isRegistered(const detail::Observers& observers, std::uint64_t id) {
    return std::any_of(observers.entries.begin(), observers.entries.end(),
                       [id](const auto& entry) { return entry.first == id; });
  }

  std::shared_ptr<detail::Observers> observers_ = std::make_shared<detail::Observers>();
};

/// A field whose changes are announced. Its owner assigns; everybody else gets it as const, reads
/// it (`*field`, `field->`) and subscribes.
template <typename T>
class Observable {
 public:
  Observable() = default;
  explicit Observable(T initial) : value_(std::move(initial)) {}

  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }

  Subscription subscribe(std::function<void()> onChange) const {
    return registrar_.subscribe(std::move(onChange));
  }

  /// Announces only when the new value differs.
  void set(T value) requires std::equality_comparable<T> {
    if (value_ == value) return;
    assign(std::move(value));
  }

  /// Announces in any case.
  void assign(T value) {
    value_ = std::move(value);
    registrar_.announce();
  }

  /// Changes the value in place, which spares long lists a copy, and announces.
  template <typename Change>
  void modify(Change change) {
    change(value_);
    registrar_.announce();
  }

 private:
  T value_{};
  ObservationRegistrar registrar_;
};

}  // namespace mirvane
