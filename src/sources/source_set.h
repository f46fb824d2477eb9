// The inventory in memory: an ordered sequence of sources, addressed by 1-based position.
#pragma once

#include "large_memory.h"
#include "mark_bitmap.h"
#include "source.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

/// There are no keys: two sources may carry the same number (the duplicate check looks for such).
class SourceSet {
public:
    [[nodiscard]] std::size_t size() const { return m_sources.size(); }
    [[nodiscard]] bool empty() const { return m_sources.empty(); }
    [[nodiscard]] cZdroje& at(std::size_t position) { return m_sources[position - 1]; }
    [[nodiscard]] const cZdroje& at(std::size_t position) const { return m_sources[position - 1]; }
    [[nodiscard]] cZdroje& last() { return m_sources.back(); }

    void reserve(std::size_t size) { m_sources.reserve(size); }
    void append(cZdroje source) { m_sources.push_back(std::move(source)); }
    /// All sources of another set, in their order; an empty set takes them over as they are.
    void append(SourceSet&& other);
    /// Appends a source of the type, filled from its points and description record (an empty description record
    /// makes all parameters 0). Throws ArithmeticFault, and adds nothing, when a number is out of range.
    void addFromRecords(const SourceType& type, std::string_view points, std::string_view description);
    /// The same from records that are plain, with the dust description as bytes of the code page; none: that of a new
    /// source.
    void addPlain(const SourceType& type, const PlainPoints& points, const PlainParameters& parameters,
        std::optional<std::string_view> dust)
    {
        m_sources.emplace_back(type, points, parameters, dust);
    }
    /// Removes the sources whose positions are marked; the others keep their order.
    void removeMarked(const MarkBitmap& marks);
    /// Drops everything; the modified flag stays as it is.
    void clear() { Sources().swap(m_sources); }

    /// Whether there is something that was not saved yet. Set by the editors' Ok and by deleting marked sources,
    /// cleared by a successful load and save. Deleting all sources does not set it.
    [[nodiscard]] bool modified() const { return m_modified; }
    void modified(bool modified) { m_modified = modified; }

private:
    using Sources = std::vector<cZdroje, LargeMemory<cZdroje>>;

    Sources m_sources;
    bool m_modified = false;
};

}  // namespace korvex
