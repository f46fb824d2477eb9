#include "clipboard_text.h"

#include "number_text.h"
#include "source_rows.h"
#include "source_set.h"

namespace korvex {

std::string clipboardText(const SourceSet& set, const SourceRows& rows)
{
    std::string text;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        if (!rows.marked(row))
            continue;
        const cZdroje& source = set.at(rows.tag(row));
        text += integerText(source.ICZ(), Pattern::SourceNumber);
        text += '\t';
        text += source.NazevZdroje();
        text += "\r\n";
    }
    return text;
}

}  // namespace korvex
