// Message boxes as the program asks for them, so that a test can answer in their place.
#pragma once

#include <QString>

class QWidget;

namespace korvex {

enum class BoxIcon { Information, Question, Exclamation, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

struct BoxRequest {
    QString title;  // empty: the application's title
    QString text;   // plain text
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    QString details;  // shown on demand; may be empty
};

class MessageBoxes {
public:
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    virtual ~MessageBoxes() = default;

    /// Shows the box over the parent until it is answered. The first button is the default one.
    virtual BoxAnswer show(QWidget* parent, const BoxRequest& request) = 0;
};

/// The toolkit's boxes with Czech buttons. Escape and the close box answer Ok and Cancel where there is such a button;
/// a box with Yes and No only stays, for No would throw the user's work away.
class ToolkitMessageBoxes : public MessageBoxes {
public:
    BoxAnswer show(QWidget* parent, const BoxRequest& request) override;
};

}  // namespace korvex
