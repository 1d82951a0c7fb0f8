#include "NotebookActions.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include "Appearance.h"

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("NotebookActions", text);
}

} // namespace

NotebookActions::NotebookActions(QMainWindow &window) : m_window(window)
{
    addFileMenu();
    addEditMenu();
    addViewMenu();
    addHelpMenu();
    addToolBar();
}

QAction *NotebookActions::add(const QString &text, const QKeySequence &keys, const QString &icon)
{
    QAction *action = m_menu->addAction(text);
    action->setShortcut(keys);
    if (!icon.isEmpty())
        action->setIcon(namedIcon(icon));
    QString toolTip = action->toolTip(); // the text without its mnemonic
    if (!keys.isEmpty())
        toolTip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
    action->setToolTip(toolTip);
    return action;
}

QAction *NotebookActions::addCheckable(const QString &text, const QKeySequence &keys, const QString &icon)
{
    QAction *action = add(text, keys, icon);
    action->setCheckable(true);
    return action;
}

void NotebookActions::addFileMenu()
{
    m_menu = m_window.menuBar()->addMenu(tr("&File"));
    newNote = add(tr("&New"), QKeySequence::New, QStringLiteral("new"));
    open = add(tr("&Open..."), QKeySequence::Open, QStringLiteral("open"));
    m_menu->addSeparator();
    save = add(tr("&Save"), QKeySequence::Save, QStringLiteral("save"));
    saveAs = add(tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")));
    m_menu->addSeparator();
    closeTab = add(tr("&Close Tab"), QKeySequence(tr("Ctrl+W")));
    quit = add(tr("&Quit"), QKeySequence(tr("Ctrl+Q")));
}

void NotebookActions::addEditMenu()
{
    m_menu = m_window.menuBar()->addMenu(tr("&Edit"));
    undo = add(tr("&Undo"), QKeySequence::Undo, QStringLiteral("undo"));
    redo = add(tr("&Redo"), QKeySequence(tr("Ctrl+Shift+Z")), QStringLiteral("redo"));
    m_menu->addSeparator();
    cut = add(tr("Cu&t"), QKeySequence::Cut, QStringLiteral("cut"));
    copy = add(tr("&Copy"), QKeySequence::Copy, QStringLiteral("copy"));
    paste = add(tr("&Paste"), QKeySequence::Paste, QStringLiteral("paste"));
    m_menu->addSeparator();
    find = add(tr("&Find..."), QKeySequence::Find, QStringLiteral("find"));
    sign = add(tr("&Sign Note"), QKeySequence(tr("Ctrl+Shift+D")));
    m_menu->addSeparator();
    preferences = add(tr("Pr&eferences..."), QKeySequence(tr("Ctrl+,")));
}

void NotebookActions::addViewMenu()
{
    m_menu = m_window.menuBar()->addMenu(tr("&View"));
    preview = addCheckable(tr("&Preview"), QKeySequence(tr("Ctrl+Shift+P")), QStringLiteral("preview"));
    wordWrap = addCheckable(tr("&Word Wrap"), QKeySequence(tr("Alt+Z")));
    m_menu->addSeparator();
    zoomIn = add(tr("Zoom &In"), QKeySequence(tr("Ctrl++")));
    zoomIn->setShortcuts({zoomIn->shortcut(), QKeySequence(tr("Ctrl+="))});
    zoomOut = add(tr("Zoom &Out"), QKeySequence(tr("Ctrl+-")));
    usualSize = add(tr("&Usual Size"), QKeySequence(tr("Ctrl+0")));
}

void NotebookActions::addHelpMenu()
{
    m_menu = m_window.menuBar()->addMenu(tr("&Help"));
    report = add(tr("&Report a Bug..."), {}, QStringLiteral("bug"));
    m_menu->addSeparator();
    about = add(tr("&About Fieldnotes"));
}

void NotebookActions::addToolBar()
{
    QToolBar *bar = m_window.addToolBar(tr("Tools"));
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    bar->setContextMenuPolicy(Qt::PreventContextMenu); // else it offers to hide the bar for good
    const auto group = [bar](const QList<QAction *> &actions) {
        bar->addActions(actions);
        bar->addSeparator();
    };
    group({newNote, open, save});
    group({undo, redo});
    group({cut, copy, paste});
    bar->addActions({find, preview});
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);
    bar->addAction(report);
}
