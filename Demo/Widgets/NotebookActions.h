#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QMainWindow;
class QMenu;

/// The commands of the window in its menus and its tool bar. They do nothing until they are connected.
class NotebookActions
{
public:
    /// The actions belong to the window from then on.
    explicit NotebookActions(QMainWindow &window);

    QAction *newNote, *open, *save, *saveAs, *closeTab, *quit;
    QAction *undo, *redo, *cut, *copy, *paste, *find, *sign, *preferences;
    QAction *wordWrap, *preview, *zoomIn, *zoomOut, *usualSize;
    QAction *report, *about;

private:
    QAction *add(const QString &text, const QKeySequence &keys = {}, const QString &icon = {});
    QAction *addCheckable(const QString &text, const QKeySequence &keys, const QString &icon = {});
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addHelpMenu();
    void addToolBar();

    QMainWindow &m_window;
    QMenu *m_menu = nullptr; ///< the one that `add` adds to
};
