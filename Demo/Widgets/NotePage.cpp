#include "NotePage.h"

#include <tuple>

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSplitter>
#include <QStringDecoder>
#include <QSyntaxHighlighter>

#include "Appearance.h"
#include "MarkdownPreview.h"

namespace {

constexpr qint64 largestFile = 4 * 1024 * 1024;
constexpr int previewDelay = 120; // ms

/// Keeps the marks of Markdown and colours what they mean; of two rules that match, the later one counts.
class MarkdownHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &text) override
    {
        static const std::tuple<QRegularExpression, QColor, QFont::Weight> rules[] = {
            {QRegularExpression(QStringLiteral("\\*\\*[^*\\s][^*]*\\*\\*")), Ink::text, QFont::Bold},
            {QRegularExpression(QStringLiteral("^\\s*([-*+]|\\d+\\.)( \\[[ xX]\\])?(?= )")), Ink::accent,
             QFont::Bold},
            {QRegularExpression(QStringLiteral("`[^`]+`")), Ink::code, QFont::Normal},
            {QRegularExpression(QStringLiteral("^\\s*>.*$")), Ink::soft, QFont::Normal},
            {QRegularExpression(QStringLiteral("^#{1,6}\\s.*$")), Ink::accent, QFont::Bold},
        };
        for (const auto &[pattern, colour, weight] : rules) {
            QTextCharFormat format;
            format.setForeground(colour);
            format.setFontWeight(weight);
            for (auto matches = pattern.globalMatch(text); matches.hasNext();) {
                const auto match = matches.next();
                setFormat(int(match.capturedStart()), int(match.capturedLength()), format);
            }
        }
    }
};

QPlainTextEdit *newEditor()
{
    auto *editor = new QPlainTextEdit;
    editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    editor->document()->setDocumentMargin(22);
    editor->setPlainText({}); // the margin counts as a change of the user's, and could be undone
    editor->setCursorWidth(2);
    new MarkdownHighlighter(editor->document());
    return editor;
}

} // namespace

NotePage::NotePage(const QString &name, const Preferences &preferences)
    : m_name(name)
    , m_editor(newEditor())
    , m_preview(new MarkdownPreview)
{
    auto *parts = new QSplitter;
    parts->addWidget(m_editor);
    parts->addWidget(m_preview);
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(1);
    parts->setSizes({1000, 1000}); // halves, whatever the width will be
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);

    m_typing.setSingleShot(true);
    m_typing.setInterval(previewDelay);
    connect(&m_typing, &QTimer::timeout, this, &NotePage::showPreview);
    connect(m_editor, &QPlainTextEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    for (const auto signal : {&QPlainTextEdit::textChanged, &QPlainTextEdit::selectionChanged,
                              &QPlainTextEdit::cursorPositionChanged})
        connect(m_editor, signal, this, &NotePage::changed);
    connect(m_editor, &QPlainTextEdit::modificationChanged, this, &NotePage::changed);
    apply(preferences);
}

QString NotePage::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray bytes = file.read(largestFile + 1);
    if (bytes.size() > largestFile)
        return tr("The file is too large for a note.");
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(bytes);
    if (decode.hasError() || text.contains(QChar::Null)) // saving it would destroy it
        return tr("The file is not a text in UTF-8.");
    m_editor->setPlainText(text);
    setPath(path);
    showPreview();
    return {};
}

QString NotePage::save(const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    file.write(m_editor->toPlainText().toUtf8());
    if (!file.commit())
        return file.errorString();
    setPath(path);
    return {};
}

void NotePage::apply(const Preferences &preferences)
{
    QFont font = m_editor->font();
    font.setPointSize(preferences.fontSize);
    m_editor->setFont(font);
    m_editor->setLineWrapMode(preferences.wordWrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    m_preview->setVisible(preferences.preview);
    showPreview();
}

bool NotePage::isModified() const
{
    return m_editor->document()->isModified();
}

int NotePage::wordCount() const
{
    return static_cast<int>(m_editor->toPlainText().simplified().split(u' ', Qt::SkipEmptyParts).size());
}

void NotePage::setPath(const QString &path)
{
    m_path = path.startsWith(u':') ? QString() : path; // what comes with the application stays as it is
    m_name = QFileInfo(path).completeBaseName();
    m_editor->document()->setModified(false);
    Q_EMIT changed();
}

void NotePage::showPreview()
{
    if (!m_preview->isHidden())
        m_preview->showNote(m_editor->toPlainText(), m_editor->font().pointSize());
}
