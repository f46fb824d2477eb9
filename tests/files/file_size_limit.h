// A limit on the size of files, which stands for a quota or a full disk.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace korvex::test {

/// Lets no file of this process grow beyond a size, as a quota would.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        m_oldAction = std::signal(SIGXFSZ, SIG_IGN);
        m_limited = ::getrlimit(RLIMIT_FSIZE, &m_old) == 0;
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        m_limited = m_limited && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        if (m_limited)
            ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldAction);
    }
    [[nodiscard]] bool limited() const { return m_limited; }

private:
    rlimit m_old{};
    bool m_limited = false;
    void (*m_oldAction)(int) = nullptr;
};

}  // namespace korvex::test
