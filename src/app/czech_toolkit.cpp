#include "czech_toolkit.h"

#include <QApplication>
#include <QProxyStyle>
#include <QTranslator>

#include <cstring>

namespace korvex {

namespace {

/// The toolkit's translation says "Zrušit" where this program says "Storno".
class StornoTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(
        const char* /*context*/, const char* sourceText, const char* /*disambiguation*/, int /*n*/) const override
    {
        if (std::strcmp(sourceText, "Cancel") == 0)
            return QStringLiteral("Storno");
        if (std::strcmp(sourceText, "&Cancel") == 0)
            return QStringLiteral("&Storno");
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
    auto* const texts = new QTranslator(&application);
    if (texts->load(QStringLiteral(":/translations/qtbase_cs.qm")))
        QApplication::installTranslator(texts);
    QApplication::installTranslator(new StornoTranslator(&application));
    QApplication::setStyle(new ButtonOrderStyle);
}

}  // namespace korvex
