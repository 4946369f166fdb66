#pragma once

#include "HostSupport/KelvarinException.h"

#include <atomic>
#include <cstddef>
#include <deque>
#include <iterator>
#include <list>
#include <type_traits>
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

/// What holds the elements of arrays: the vector of `bool` packs them, so that none can be referred
/// to.
template <class T> using YElements =
    std::conditional_t<std::is_same_v<T, bool>, std::deque<T>, std::vector<T>>;

/// A resizable array, as the host's entries pass it.
template <class T> class YArray : public YContainer<YElements<T>> {
public:
  void reserve(int count) {
    if constexpr (!std::is_same_v<T, bool>)
      this->m_items.reserve(static_cast<std::size_t>(count));
  }
  T& operator[](int index) { return this->m_items[static_cast<std::size_t>(index)]; }
  const T& operator[](int index) const { return this->m_items[static_cast<std::size_t>(index)]; }
  /// The element, or a default value where there is none.
  T value(int index) const { return index >= 0 && index < this->count() ? (*this)[index] : T(); }
};

/// A linked list, as the host's entries pass it.
template <class T> class YList : public YContainer<std::list<T>> {
public:
  /// Walks there from the front.
  T& operator[](int index) { return *std::next(this->m_items.begin(), index); }
  const T& operator[](int index) const { return *std::next(this->m_items.begin(), index); }
};

/// What all references to one object share.
struct YRefCount {
  YRefCount() = default;
  YRefCount(const YRefCount&) = delete;
  YRefCount& operator=(const YRefCount&) = delete;
  virtual ~YRefCount() = default;
  std::atomic<int> count{1};
};

/// A shared reference with an atomic count; the last release deletes the object, as the class that
/// the first reference to it was made for.
template <class T> class YRef {
public:
  YRef() noexcept = default;
  explicit YRef(T* object) : m_object(object), m_block(object ? new Owner(object) : nullptr) {}
  YRef(const YRef& other) noexcept : YRef(other.m_object, other.m_block) { retain(); }
  YRef(YRef&& other) noexcept : YRef(other.m_object, other.m_block) { other.forget(); }
  /// From a reference to a derived class.
  template <class Other, std::enable_if_t<std::is_convertible_v<Other*, T*>, int> = 0>
  YRef(const YRef<Other>& other) noexcept : YRef(other.m_object, other.m_block) {
    retain();
  }
  template <class Other, std::enable_if_t<std::is_convertible_v<Other*, T*>, int> = 0>
  YRef(YRef<Other>&& other) noexcept : YRef(other.m_object, other.m_block) {
    other.forget();
  }
  ~YRef() { release(); }
  YRef& operator=(YRef other) noexcept {
    std::swap(m_object, other.m_object);
    std::swap(m_block, other.m_block);
    return *this;
  }
  T* get() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }
  explicit operator bool() const noexcept { return m_object != nullptr; }
  void reset() noexcept { *this = YRef(); }

private:
  template <class> friend class YRef;

  struct Owner : YRefCount {
    explicit Owner(T* owned) : object(owned) {}
    ~Owner() override { delete object; }
    T* object;
  };
  YRef(T* object, YRefCount* block) noexcept : m_object(object), m_block(block) {}
  void retain() noexcept {
    if (m_block)
      m_block->count.fetch_add(1, std::memory_order_relaxed);
  }
  void release() noexcept {
    if (m_block && m_block->count.fetch_sub(1, std::memory_order_acq_rel) == 1)
      delete m_block;
  }
  void forget() noexcept {
    m_object = nullptr;
    m_block = nullptr;
  }

  T* m_object = nullptr;
  YRefCount* m_block = nullptr;
};

/// A vector that grows, filled with zeros, when an element beyond its end is accessed.
template <class T> class YVector : public YContainer<YElements<T>> {
public:
  /// Raises `KelvarinException` for a negative index, as the constant form does.
  T& operator[](int index) {
    const std::size_t position = checked(index);
    if (position >= this->m_items.size())
      this->m_items.resize(position + 1);
    return this->m_items[position];
  }
  /// Zero beyond the end.
  T operator[](int index) const {
    const std::size_t position = checked(index);
    return position < this->m_items.size() ? this->m_items[position] : T();
  }

private:
  static std::size_t checked(int index) {
    if (index < 0)
      throw KelvarinException("YVector index negative");
    return static_cast<std::size_t>(index);
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
  T& operator[](std::size_t index) { return data()[index]; }
  const T& operator[](std::size_t index) const { return data()[index]; }
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
