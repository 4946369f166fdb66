#pragma once

#include "HostSupport/KelvarinException.h"

#include <atomic>
#include <cstddef>
#include <list>
#include <utility>
#include <vector>

/// What the containers below have in common.
template <class Items> class YContainer {
public:
  int count() const { return static_cast<int>(m_items.size()); }
  bool isEmpty() const { return m_items.empty(); }
  void append(typename Items::value_type item) { m_items.push_back(std::move(item)); }
  void clear() { m_items.clear(); }
  auto begin() { return m_items.begin(); }
  auto end() { return m_items.end(); }
  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }

protected:
  Items m_items;
};

/// A resizable array, as the host's entries pass it.
template <class T> class YArray : public YContainer<std::vector<T>> {
public:
  void reserve(int count) { this->m_items.reserve(static_cast<std::size_t>(count)); }
  T& operator[](int index) { return this->m_items[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return this->m_items[static_cast<std::size_t>(index)]; }
  /// The element, or a default value where there is none.
  T value(int index) const { return index >= 0 && index < this->count() ? (*this)[index] : T(); }
};

/// A linked list, as the host's entries pass it.
template <class T> class YList : public YContainer<std::list<T>> {};

/// A shared reference with an atomic count; the last release deletes the object through `T`.
template <class T> class YRef {
public:
  YRef() noexcept = default;
  explicit YRef(T* object) : m_block(object ? new Block{object, {1}} : nullptr) {}
  YRef(const YRef& other) noexcept : m_block(other.m_block) { retain(); }
  YRef(YRef&& other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
  ~YRef() { release(); }
  YRef& operator=(YRef other) noexcept {
    std::swap(m_block, other.m_block);
    return *this;
  }
  T* get() const noexcept { return m_block ? m_block->object : nullptr; }
  T* operator->() const noexcept { return get(); }
  T& operator*() const noexcept { return *get(); }
  explicit operator bool() const noexcept { return m_block != nullptr; }
  void reset() noexcept { *this = YRef(); }

private:
  struct Block {
    T* object;
    std::atomic<int> count;
  };
  void retain() noexcept {
    if (m_block)
      m_block->count.fetch_add(1, std::memory_order_relaxed);
  }
  void release() noexcept {
    if (m_block && m_block->count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      delete m_block->object;
      delete m_block;
    }
  }
  Block* m_block = nullptr;
};

/// A vector that grows, filled with zeros, when an element beyond its end is accessed.
template <class T> class YVector : public YContainer<std::vector<T>> {
public:
  /// Raises `KelvarinException` for a negative index.
  T& operator[](int index) {
    if (index < 0)
      throw KelvarinException("YVector index negative");
    const auto position = static_cast<std::size_t>(index);
    if (position >= this->m_items.size())
      this->m_items.resize(position + 1);
    return this->m_items[position];
  }
};

/// What the host's real vectors and those of a module have in common.
template <class T> class KvSequenceContainer {
public:
  virtual ~KvSequenceContainer() = default;
  virtual std::size_t size() const = 0;
  virtual void resize(std::size_t count) = 0;
  virtual void append(T value) = 0;
  virtual T* data() = 0;
  virtual const T* data() const = 0;
};

/// A plain vector behind the host's vector interface.
template <class T> class KvVector final : public KvSequenceContainer<T> {
public:
  KvVector() = default;
  explicit KvVector(std::vector<T> values) : m_values(std::move(values)) {}
  std::size_t size() const override { return m_values.size(); }
  void resize(std::size_t count) override { m_values.resize(count); }
  void append(T value) override { m_values.push_back(value); }
  T* data() override { return m_values.data(); }
  const T* data() const override { return m_values.data(); }
  const std::vector<T>& values() const { return m_values; }

private:
  std::vector<T> m_values;
};
