// What of a record would be gone, or have another meaning, once a save had written it anew.
#pragma once

#include "number_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

class cZdroje;

enum class RecordLoss {
    Value,          // a field would be written with another value: it was read in part, rounded, or passed over
    NoValue,        // a field that is missing or blank would be written as 0
    SurplusFields,  // more fields than the type has: those behind are gone
    Name,
    Dust,
};

struct RecordDifference {
    RecordLoss loss;
    std::size_t field;   // from 1; 0 for name and dust
    std::string before;  // in UTF-8, as the record has it
    std::string after;   // as it would be written
};

/// Whether two texts are decimal numbers of exactly the same value, however they are padded. Blanks do not count, as
/// they do not for the loader.
[[nodiscard]] bool isSameNumber(std::string_view a, std::string_view b);

/// Compares records, in bytes of the code page, with what the saver writes for the source that was loaded from them.
/// No list of what the loader is lenient about is needed for this, so nothing can be missing from it.
class RecordComparison {
public:
    [[nodiscard]] std::vector<RecordDifference> points(std::string_view record, const cZdroje& source);
    [[nodiscard]] std::vector<RecordDifference> description(std::string_view record, const cZdroje& source);
    [[nodiscard]] std::vector<RecordDifference> dust(std::string_view record, const cZdroje& source);

private:
    /// m_saved as bytes of the code page.
    [[nodiscard]] std::string_view savedBytes();

    std::string m_saved;
    std::string m_encoded;
    SingleTexts m_singleTexts;
};

}  // namespace korvex
