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

// Opens the file and waits for an exclusive lock on it, which lasts until the descriptor closes;
// the kernel frees the lock of a process that is killed. Empty when the file cannot be opened.
TDescriptor LockFile(const std::string& path);

} // namespace murala
