#include "FindBar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "Appearance.h"
#include "NoteEditor.h"

namespace {
constexpr int mostMatches = 1000; // marking more would make typing slow
} // namespace

FindBar::FindBar(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLineEdit)
    , m_count(new QLabel)
    , m_matchCase(new QCheckBox(tr("Match case")))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(14, 7, 10, 7);
    row->setSpacing(6);
    row->addWidget(m_text, 1);
    row->addWidget(m_count);
    connect(addButton(QStringLiteral("up"), tr("Previous (Shift+Enter)")), &QToolButton::clicked, this,
            [this] { step(QTextDocument::FindBackward); });
    connect(addButton(QStringLiteral("down"), tr("Next (Enter)")), &QToolButton::clicked, this,
            [this] { step({}); });
    row->addSpacing(6);
    row->addWidget(m_matchCase);
    row->addStretch(1);
    connect(addButton(QStringLiteral("close"), tr("Close (Esc)")), &QToolButton::clicked, this,
            &QWidget::hide);
    m_text->setPlaceholderText(tr("Find in this note"));
    m_text->setMaximumWidth(340);
    m_count->setMinimumWidth(76);
    m_count->setObjectName(QStringLiteral("hint"));
    connect(m_text, &QLineEdit::textChanged, this, &FindBar::search);
    connect(m_matchCase, &QCheckBox::toggled, this, &FindBar::search);
    hide();
}

void FindBar::setEditor(NoteEditor *editor)
{
    if (m_editor != nullptr) {
        m_editor->setMatches({});
        m_editor->disconnect(this);
    }
    m_editor = editor;
    if (editor != nullptr) {
        connect(editor, &QPlainTextEdit::textChanged, this, &FindBar::search);
        connect(editor, &QPlainTextEdit::cursorPositionChanged, this, &FindBar::showCount);
    }
    search();
}

void FindBar::open()
{
    show();
    const QString selected = m_editor != nullptr ? m_editor->textCursor().selectedText() : QString();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_text->setText(selected);
    m_text->setFocus();
    m_text->selectAll();
    search();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        step(event->modifiers() & Qt::ShiftModifier ? QTextDocument::FindBackward
                                                    : QTextDocument::FindFlags());
    else
        QFrame::keyPressEvent(event);
}

void FindBar::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (m_editor == nullptr)
        return;
    m_editor->setMatches({});
    m_editor->setFocus();
}

QToolButton *FindBar::addButton(const QString &icon, const QString &toolTip)
{
    auto *button = new QToolButton;
    button->setIcon(namedIcon(icon));
    button->setToolTip(toolTip);
    button->setFocusPolicy(Qt::NoFocus);
    layout()->addWidget(button);
    return button;
}

QTextDocument::FindFlags FindBar::flags() const
{
    return m_matchCase->isChecked() ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
}

void FindBar::search()
{
    if (m_editor == nullptr || isHidden())
        return;
    m_matches.clear();
    QTextCursor found(m_editor->document());
    while (!m_text->text().isEmpty() && m_matches.size() < mostMatches) {
        found = m_editor->document()->find(m_text->text(), found, flags());
        if (found.isNull())
            break;
        m_matches.append(found);
    }
    m_editor->setMatches(m_matches);
    showCount();
}

void FindBar::step(QTextDocument::FindFlags direction)
{
    if (m_editor == nullptr || m_matches.isEmpty())
        return;
    if (m_editor->find(m_text->text(), flags() | direction))
        return;
    const bool back = direction.testFlag(QTextDocument::FindBackward);
    m_editor->setTextCursor(back ? m_matches.last() : m_matches.first());
}

void FindBar::showCount()
{
    if (m_editor == nullptr || isHidden())
        return;
    const qsizetype current = m_matches.indexOf(m_editor->textCursor());
    if (m_text->text().isEmpty())
        m_count->clear();
    else if (m_matches.isEmpty())
        m_count->setText(tr("Not found"));
    else if (current >= 0)
        m_count->setText(tr("%1 of %2").arg(current + 1).arg(m_matches.size()));
    else
        m_count->setText(tr("%n found", nullptr, static_cast<int>(m_matches.size())));
}
