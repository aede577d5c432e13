// The platform's reference-counting pointer.

#ifndef ODPS_OD_SMART_PTR_H
#define ODPS_OD_SMART_PTR_H

#include <cstddef>
#include <utility>

/// Holds one reference on an object that counts its references with `addRef()` and `release()`.
/// Not thread-safe; a null pointer may be copied and compared but not dereferenced.
template <class T>
class OdSmartPtr
{
public:
    OdSmartPtr() = default;
    OdSmartPtr(std::nullptr_t) {}
    /// Takes a reference of its own on `object`, which may be null.
    OdSmartPtr(T* object)
        : m_object(object)
    {
        if (m_object)
            m_object->addRef();
    }
    OdSmartPtr(const OdSmartPtr& other)
        : OdSmartPtr(other.m_object)
    {
    }
    OdSmartPtr(OdSmartPtr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    template <class U>
    OdSmartPtr(const OdSmartPtr<U>& other)
        : OdSmartPtr(static_cast<T*>(other.get()))
    {
    }
    ~OdSmartPtr()
    {
        if (m_object)
            m_object->release();
    }
    OdSmartPtr& operator=(OdSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// The object, still owned by its references; null when there is none.
    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    bool isNull() const noexcept { return m_object == nullptr; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(const OdSmartPtr& a, const OdSmartPtr& b)
    {
        return a.m_object == b.m_object;
    }
    friend bool operator!=(const OdSmartPtr& a, const OdSmartPtr& b)
    {
        return a.m_object != b.m_object;
    }

private:
    T* m_object = nullptr;
};

#endif
