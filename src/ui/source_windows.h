// Opens the editor window of a source's type.
#pragma once

#include "shell.h"
#include "source_editor.h"

class QWidget;

namespace korvex {

class SourceSet;

/// What the sources' Edit is handed. Ok in an editor sets the set's modified flag, also for a source that is not in
/// the set yet.
class SourceWindows : public SourceEditor {
public:
    enum class Number { Fixed, Typed };

    SourceWindows(const Shell& shell, SourceSet& set, QWidget& owner, Number number = Number::Fixed);

    [[nodiscard]] bool edit(const SourceType& type, SourceValues& values) override;
    /// The number that was typed, after an edit that was confirmed.
    [[nodiscard]] std::int32_t typedNumber() const { return m_typedNumber; }

private:
    template <class Dialog>
    [[nodiscard]] bool editIn(SourceValues& values);

    Shell m_shell;
    SourceSet& m_set;
    QWidget& m_owner;
    Number m_number;
    std::int32_t m_typedNumber = 0;
};

}  // namespace korvex
