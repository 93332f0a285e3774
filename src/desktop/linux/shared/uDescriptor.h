// The owner of a file descriptor.
#pragma once

#include <unistd.h>

#include <string>
#include <utility>

namespace murala
{

class TDescriptor
{
public:
    explicit TDescriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    TDescriptor(TDescriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    TDescriptor& operator=(TDescriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~TDescriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    int Get() const { return m_descriptor; }
    explicit operator bool() const { return m_descriptor >= 0; }

private:
    int m_descriptor;
};

// The file, held by an exclusive lock until the descriptor closes; waits for it. Empty when the
// file cannot be opened. The kernel frees the lock of a process that is killed.
TDescriptor LockFile(const std::string& path);

} // namespace murala
