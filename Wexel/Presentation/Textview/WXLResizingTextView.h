#pragma once

#include <QQuickItem>
#include <QQuickTextDocument>

namespace wexel {

/// The description field: grows with its text up to three lines, then keeps that height and scrolls. While it is empty it
/// shows a placeholder, with the caret in front of it: typing replaces it, and there is nothing in it to select, to delete
/// or to undo. Main thread only.
class WXLResizingTextView : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY textChanged)
    Q_PROPERTY(QString placeholder MEMBER m_placeholder NOTIFY textChanged)
    Q_PROPERTY(bool isPlaceholderShown READ isPlaceholderShown NOTIFY textChanged)
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY documentChanged)
    Q_PROPERTY(double lineHeightMultiple READ lineHeightMultiple CONSTANT)
    Q_PROPERTY(double fieldHeight MEMBER m_fieldHeight NOTIFY measured)
    Q_PROPERTY(bool isScrollEnabled MEMBER m_isScrollEnabled NOTIFY measured)

public:
    using QQuickItem::QQuickItem;

    /// What stands in the field: the tester's words, else the placeholder.
    [[nodiscard]] QString shownText() const { return isPlaceholderShown() ? m_placeholder : m_text; }
    [[nodiscard]] bool isPlaceholderShown() const { return m_text.isEmpty(); }
    void setPlaceholder(const QString &placeholder);
    void setText(const QString &text);

    /// The text of the field, whose lines are set a little wider apart than the font would have them.
    [[nodiscard]] QQuickTextDocument *document() const { return m_document; }
    void setDocument(QQuickTextDocument *document);
    [[nodiscard]] static constexpr double lineHeightMultiple() { return 1.1; }

    /// The field was laid out anew.
    /// \param fittedHeight that all of the text needs, with the insets
    /// \param insets above and below the text together
    /// \param lineHeight of the font
    Q_INVOKABLE void textViewDidChange(double fittedHeight, double insets, double lineHeight);

    /// The keyboard goes to the field.
    void becomeFirstResponder() { Q_EMIT focusWanted(); }
    /// To the end of what was typed before, else in front of the placeholder.
    void placeCaret() { Q_EMIT caretWanted(); }

Q_SIGNALS:
    void textChanged();
    void documentChanged();
    void measured();
    void focusWanted();
    void caretWanted();

private:
    void spaceLines();

    QQuickTextDocument *m_document = nullptr;
    QString m_text;
    QString m_placeholder;
    double m_fieldHeight = 50;
    bool m_isScrollEnabled = false;
};

} // namespace wexel
