// One source of the inventory: its values and its records in the three data files.
#pragma once

#include "plain_records.h"
#include "source_texts.h"
#include "source_type.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

class SingleTexts;
class SourceEditor;
struct SourceValues;

/// A stack, an area or a road segment, told apart by its SourceType. Getters and setters are overloaded pairs.
///
/// The three records are texts as in the files, without line ends, in UTF-8. Reading a record throws
/// ArithmeticFault when a number in it is out of range; the source is then unchanged.
class cZdroje {
public:
    explicit cZdroje(const SourceType& type);
    /// Filled from plain records, as LineSource, LineParameters and LineDust would fill it.
    cZdroje(const SourceType& type, const PlainPoints& points, const PlainParameters& parameters,
        std::optional<std::string_view> dust);

    [[nodiscard]] const SourceType& type() const;
    [[nodiscard]] std::int32_t Icon() const { return type().Icon; }
    [[nodiscard]] std::string_view TypZdroje() const { return type().TypZdroje; }
    [[nodiscard]] std::int32_t TypZdrojeId() const { return m_typeId; }

    [[nodiscard]] std::string_view NazevZdroje() const { return m_texts.name(); }

    /// Part of the triple that identifies a source; 0 for every source of this program.
    [[nodiscard]] std::int32_t CKU() const { return 0; }
    [[nodiscard]] std::int32_t KOMIN() const { return type().KOMIN; }
    [[nodiscard]] std::int32_t ICZ() const { return m_number; }
    /// Also replaces the name by the type's name and the number (Bodový zdroj 12), whatever it was.
    void ICZ(std::int32_t number);
    /// Sets the number and keeps the name.
    void renumber(std::int32_t number) { m_number = number; }

    /// Record of the points file: number, position, type code, group, cluster and name.
    [[nodiscard]] std::string LineSource() const;
    void appendLineSource(std::string& out) const;
    /// Takes all but the type code; leaves the parameters and the dust as they are.
    void LineSource(std::string_view record);

    /// Record of the description file: number and parameters.
    [[nodiscard]] std::string LineParameters() const;
    /// With the texts of reals remembered when a million records are written.
    void appendLineParameters(std::string& out, SingleTexts* texts = nullptr) const;
    /// Takes the parameters; missing fields are 0. The number is not looked at: the loader pairs by it.
    void LineParameters(std::string_view record);

    /// Record of the dust file: number and dust description; the number alone for areas and lines.
    [[nodiscard]] std::string LineDust() const;
    void appendLineDust(std::string& out) const;
    /// Takes a dust description, that is the record behind its number, as it stands.
    void LineDust(std::string_view description) { m_texts.dust(description); }

    /// Copies of all values.
    [[nodiscard]] SourceValues values() const;
    /// Takes over all but the number and the stack number.
    void values(const SourceValues& values);

    /// Has the editor show copies of the values and takes them over only when it was confirmed.
    void Edit(SourceEditor& editor);
    /// Whether the last Edit was confirmed.
    [[nodiscard]] bool EditOk() const { return m_editOk; }

    /// A numeric parameter; index and unit as told with the types. Throws std::out_of_range for an index that the
    /// type does not have.
    [[nodiscard]] float Parameters(std::int32_t index) const;
    void Parameters(std::int32_t index, float value);

    /// Position in whole metres.
    [[nodiscard]] std::int32_t X() const { return m_x; }
    void X(std::int32_t x) { m_x = x; }
    [[nodiscard]] std::int32_t Y() const { return m_y; }
    void Y(std::int32_t y) { m_y = y; }

private:
    static constexpr std::size_t mostParameters = 9;

    [[nodiscard]] std::size_t parameterIndex(std::int32_t index) const;

    SourceTexts m_texts;
    std::int32_t m_number = 0;
    std::int32_t m_x = 0;
    std::int32_t m_y = 0;
    std::int32_t m_altitude = 0;
    std::int32_t m_group = 0;
    std::int32_t m_cluster = 0;
    std::array<float, mostParameters> m_parameters{};
    std::int8_t m_typeId;
    bool m_editOk = false;
};

static_assert(sizeof(cZdroje) <= 72, "a million sources are held at once");

}  // namespace korvex
