#pragma once

#include <functional>

#include <QKeySequence>
#include <QMainWindow>

#include "PreferencesDialog.h"

class FindBar;
class NotePage;
class QLabel;
class QPlainTextEdit;
class QTabWidget;
class QToolBar;

/// The one window of Fieldnotes: its open notes in tabs, with menus, tool bar, find bar and status bar. Once a note was
/// opened, at least one is.
class NotebookWindow : public QMainWindow
{
    Q_OBJECT

public:
    NotebookWindow();

    /// Opens the file in a tab of its own, or shows the tab that has it; tells the user when it can't. A path that
    /// begins with a colon is a note that comes with the application.
    void openNote(const QString &path);
    /// The note that is shown; null only until the first one is opened.
    [[nodiscard]] NotePage *currentPage() const;
    [[nodiscard]] int noteCount() const;
    [[nodiscard]] const Preferences &preferences() const { return m_preferences; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // In NotebookMenus.cpp; a command with an icon is in the tool bar, too
    using Run = std::function<void()>;
    QAction *add(QMenu *menu, const QString &text, const QKeySequence &keys, const char *icon,
                 const Run &run);
    void addSeparators(QMenu *menu);
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addHelpMenu();

    NotePage *addPage(const QString &name);
    [[nodiscard]] NotePage *pageAt(int index) const;
    [[nodiscard]] QPlainTextEdit &editor() const; ///< of the current note
    void newNote();
    void chooseNotes();
    bool save(NotePage &page, bool elsewhere = false);
    bool mayClose(int index);
    void closeNote(int index);
    void editPreferences();
    void setPreferences(const Preferences &preferences);
    void readSwitches();
    void zoom(int points);
    void showAbout();
    void showNote();
    void showState(NotePage *page);

    Preferences m_preferences;
    QToolBar *m_tools;
    QTabWidget *m_tabs;
    FindBar *m_findBar;
    QLabel *m_saved;
    QLabel *m_words;
    QLabel *m_position;
    int m_untitled = 0;
    QAction *m_undo = nullptr, *m_redo = nullptr, *m_cut = nullptr, *m_copy = nullptr;
    QAction *m_preview = nullptr, *m_wordWrap = nullptr;
};
