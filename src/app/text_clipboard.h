// The clipboard as plain text, so that a test can look at what was put there.
#pragma once

#include <QString>

namespace korvex {

class TextClipboard {
public:
    TextClipboard() = default;
    TextClipboard(const TextClipboard&) = delete;
    TextClipboard& operator=(const TextClipboard&) = delete;
    virtual ~TextClipboard() = default;

    /// Replaces whatever the clipboard held.
    virtual void put(const QString& text) = 0;
};

/// The desktop's clipboard. When the program ends the toolkit hands the text to the desktop's clipboard manager.
class DesktopClipboard : public TextClipboard {
public:
    void put(const QString& text) override;
};

}  // namespace korvex
