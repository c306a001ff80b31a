#pragma once

#include <utility>

/// Holds one reference to a host object: adds one on copy, gives it back on destruction.
template <typename T>
class HostPtr {
  public:
    HostPtr() = default;
    /// Takes over a reference that the caller owns.
    static HostPtr adopt(T* object) {
        HostPtr pointer;
        pointer.m_object = object;
        return pointer;
    }
    HostPtr(const HostPtr& other) : m_object(other.m_object) {
        if (m_object != nullptr)
            m_object->addRef();
    }
    HostPtr(HostPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    HostPtr& operator=(HostPtr other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~HostPtr() {
        if (m_object != nullptr)
            m_object->release();
    }

    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    /// Hands the reference to the caller.
    T* detach() { return std::exchange(m_object, nullptr); }

  private:
    T* m_object = nullptr;
};
