// A block of bytes that is filled once and then only read.

#ifndef TABLEFILE_BUFFER_H
#define TABLEFILE_BUFFER_H

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

namespace tablefile
{

/// Owned bytes. They start out uninitialised, so that the system provides memory only for what is
/// really written into a generously sized buffer.
class Buffer
{
public:
    Buffer() = default;
    explicit Buffer(std::size_t size)
        : m_data(static_cast<char*>(std::malloc(size)))
        , m_size(size)
    {
        if (!m_data && size != 0)
            throw std::bad_alloc();
    }

    char* data() noexcept { return m_data.get(); }
    std::size_t size() const noexcept { return m_size; }
    std::string_view view() const noexcept { return {m_data.get(), m_size}; }

    /// Gives back what lies beyond the first `size` bytes.
    void shrink(std::size_t size)
    {
        if (void* smaller = std::realloc(m_data.get(), size ? size : 1))
        {
            (void)m_data.release();
            m_data.reset(static_cast<char*>(smaller));
        }
        m_size = size;
    }

private:
    struct Free
    {
        void operator()(char* data) const noexcept { std::free(data); }
    };

    std::unique_ptr<char, Free> m_data;
    std::size_t m_size = 0;
};

} // namespace tablefile

#endif
