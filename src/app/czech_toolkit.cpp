#include "czech_toolkit.h"

#include "desktop_style.h"

#include <QApplication>
#include <QLocale>
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
    QApplication::setStyle(new DesktopStyle);
}

}  // namespace korvex
