#include "NotePage.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QSaveFile>
#include <QSplitter>
#include <QStringDecoder>

#include "MarkdownPreview.h"
#include "NoteEditor.h"

namespace {
constexpr qint64 largestFile = 4 * 1024 * 1024;
constexpr int previewDelay = 120; // ms
} // namespace

NotePage::NotePage(const QString &name, QWidget *parent)
    : QWidget(parent)
    , m_name(name)
    , m_editor(new NoteEditor)
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
    setFocusProxy(m_editor);

    m_typing.setSingleShot(true);
    m_typing.setInterval(previewDelay);
    connect(&m_typing, &QTimer::timeout, this, &NotePage::showPreview);
    connect(m_editor, &QPlainTextEdit::textChanged, &m_typing, qOverload<>(&QTimer::start));
    connect(m_editor, &QPlainTextEdit::textChanged, this, &NotePage::changed);
    connect(m_editor, &QPlainTextEdit::cursorPositionChanged, this, &NotePage::changed);
    connect(m_editor, &QPlainTextEdit::copyAvailable, this, &NotePage::changed);
    connect(m_editor, &QPlainTextEdit::modificationChanged, this, &NotePage::changed);
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
    m_preferences = preferences;
    m_editor->apply(preferences);
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
    m_typing.stop();
    if (!m_preview->isHidden())
        m_preview->showNote(m_editor->toPlainText(), m_preferences.fontSize);
}
