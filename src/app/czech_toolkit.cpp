#include "czech_toolkit.h"

#include <QApplication>
#include <QLocale>
#include <QProxyStyle>
#include <QTranslator>

#include <array>
#include <cstring>

namespace korvex {

namespace {

struct OwnText {
    const char* context;  // null: any
    const char* source;
    const char* czech;
};

/// Where the toolkit's translation says something else than this program ("Zrušit"), or nothing.
constexpr std::array<OwnText, 7> ownTexts{{
    {nullptr, "Cancel", "Storno"},
    {nullptr, "&Cancel", "&Storno"},
    {"QAbstractFileIconProvider", "Folder", "Složka"},
    {"QAbstractFileIconProvider", "File", "Soubor"},
    {"QAbstractFileIconProvider", "%1 File", "Soubor %1"},
    {"QAbstractFileIconProvider", "Drive", "Disk"},
    {"QAbstractFileIconProvider", "Unknown", "Neznámý"},
}};

class OwnTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(
        const char* context, const char* sourceText, const char* /*disambiguation*/, int /*n*/) const override
    {
        for (const OwnText& text : ownTexts) {
            if (std::strcmp(text.source, sourceText) == 0
                && (text.context == nullptr || std::strcmp(text.context, context) == 0))
                return QString::fromUtf8(text.czech);
        }
        return {};
    }
};

/// Some desktops turn the order of buttons round.
class ButtonOrderStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    [[nodiscard]] int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const override
    {
        if (hint == SH_DialogButtonLayout)
            return 0;  // Ok left of Storno (QDialogButtonBox::WinLayout)
        // Only the toolkit's own buttons have icons; ours have none, on any desktop.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

}  // namespace

void prepareToolkit()
{
    // The desktops' own dialogs speak the user's language, and not all of them can be told the file name to propose.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void makeToolkitCzech(QApplication& application)
{
    // Dates and kinds of files in the file dialogs. What the user types in fields goes by the system's locale.
    QLocale::setDefault(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    auto* const texts = new QTranslator(&application);
    if (texts->load(QStringLiteral(":/translations/qtbase_cs.qm")))
        QApplication::installTranslator(texts);
    QApplication::installTranslator(new OwnTranslator(&application));
    QApplication::setStyle(new ButtonOrderStyle);
}

}  // namespace korvex
