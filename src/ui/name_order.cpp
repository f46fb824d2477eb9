#include "name_order.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <unicode/ucol.h>

namespace korvex {

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CloseCollator>;

/// Not the toolkit's collator, although it is the same one underneath: its keys are an object each, which nobody can
/// look into, and sorting a million of them takes a second. Null where the library's data are missing.
Collator openCzechCollator()
{
    UErrorCode error = U_ZERO_ERROR;
    return Collator(ucol_open("cs_CZ", &error));
}

/// Sort keys: texts of bytes that compare as the texts they stand for.
class SortKeys {
public:
    struct Key {
        std::uint64_t part = 0;  // eight bytes, the first of them the highest
        std::size_t begin = 0;
        std::uint32_t index = 0;
    };

    explicit SortKeys(std::size_t count) { m_keys.reserve(count); }

    /// Without a collator the texts are ordered as plain texts: not in Czech order, but in one.
    void append(const UCollator* collator, const QString& text)
    {
        if (collator == nullptr) {
            m_keys.push_back({0, m_bytes.size(), static_cast<std::uint32_t>(m_keys.size())});
            m_bytes += text.toStdString() + '\0';
            return;
        }
        const auto* const characters = reinterpret_cast<const UChar*>(text.utf16());
        const auto length = static_cast<std::int32_t>(text.size());
        const std::size_t begin = m_bytes.size();
        // What a short text needs; a longer one is asked for again.
        std::int32_t room = std::min(length, 1024) * 4 + 16;
        for (;;) {
            m_bytes.resize(begin + static_cast<std::size_t>(room));
            auto* const to = reinterpret_cast<std::uint8_t*>(m_bytes.data() + begin);
            const std::int32_t size = ucol_getSortKey(collator, characters, length, to, room);
            const bool fits = size <= room;
            room = size;
            if (fits)
                break;
        }
        // Each key ends with a zero byte, as the first part that is not there any more.
        m_bytes.resize(begin + static_cast<std::size_t>(room));
        m_keys.push_back({0, begin, static_cast<std::uint32_t>(m_keys.size())});
    }

    /// Sorts the keys and gives every group of equal ones its rank.
    [[nodiscard]] std::vector<std::int64_t> ranks()
    {
        m_ranks.resize(m_keys.size());
        m_bytes.append(sizeof(std::uint64_t), '\0');  // so that a part can be read at the end of the last key
        sort(m_keys, 0);
        return std::move(m_ranks);
    }

private:
    /// By the parts at this depth; then those that are equal so far by the next ones. Whole keys would be compared
    /// byte by byte again and again, for names begin alike.
    void sort(std::span<Key> keys, std::size_t depth)
    {
        // Two names of a megabyte that begin alike are not worth a hundred thousand steps down.
        constexpr std::size_t deepest = 256;
        if (depth == deepest) {
            sortWhole(keys);
            return;
        }
        for (Key& key : keys)
            key.part = partOf(key, depth);
        std::sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.part < b.part; });
        for (auto begin = keys.begin(); begin != keys.end();) {
            const std::uint64_t part = begin->part;
            const auto end = std::find_if(begin, keys.end(), [part](const Key& key) { return key.part != part; });
            const std::span<Key> equal(begin, end);
            if (equal.size() > 1 && !hasEnd(part))
                sort(equal, depth + sizeof part);
            else
                rankAlike(equal);
            begin = end;
        }
    }

    void sortWhole(std::span<Key> keys)
    {
        const auto compare = [this](const Key& a, const Key& b) {
            return std::strcmp(m_bytes.data() + a.begin, m_bytes.data() + b.begin);
        };
        std::sort(keys.begin(), keys.end(), [&compare](const Key& a, const Key& b) { return compare(a, b) < 0; });
        for (auto begin = keys.begin(); begin != keys.end();) {
            const auto end = std::find_if(begin, keys.end(), [&](const Key& key) { return compare(*begin, key) != 0; });
            rankAlike({begin, end});
            begin = end;
        }
    }

    void rankAlike(std::span<const Key> keys)
    {
        for (const Key& key : keys)
            m_ranks[key.index] = m_nextRank;
        ++m_nextRank;
    }

    [[nodiscard]] std::uint64_t partOf(const Key& key, std::size_t depth) const
    {
        std::uint64_t part = 0;
        bool isOver = false;
        for (std::size_t i = 0; i < sizeof part; ++i) {
            const auto byte = isOver ? std::uint8_t{0} : static_cast<std::uint8_t>(m_bytes[key.begin + depth + i]);
            isOver = isOver || byte == 0;
            part = part << 8 | byte;
        }
        return part;
    }

    static bool hasEnd(std::uint64_t part) { return (part & 0xFF) == 0; }

    std::string m_bytes;
    std::vector<Key> m_keys;
    std::vector<std::int64_t> m_ranks;
    std::int64_t m_nextRank = 0;
};

}  // namespace

std::vector<std::int64_t> czechRanks(std::size_t count, const std::function<QString(std::size_t index)>& text)
{
    const Collator collator = openCzechCollator();
    SortKeys keys(count);
    for (std::size_t i = 0; i < count; ++i)
        keys.append(collator.get(), text(i));
    return keys.ranks();
}

}  // namespace korvex
