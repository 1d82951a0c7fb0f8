#pragma once

#include <QMainWindow>

#include "NotebookActions.h"
#include "Preferences.h"

class FindBar;
class NotePage;
class QLabel;
class QTabWidget;

/// The one window of Fieldnotes: its open notes in tabs, with menus, tool bar, find bar and status bar. At least one
/// note is open at any time.
class NotebookWindow : public QMainWindow
{
    Q_OBJECT

public:
    NotebookWindow();

    /// Opens the file in a tab of its own, or shows the tab that has it; tells the user when it can't.
    void openNote(const QString &path);
    /// Opens the notes that come with the application.
    void openSamples();
    /// The note that is shown; null only until the first one is opened.
    [[nodiscard]] NotePage *currentPage() const;
    [[nodiscard]] int noteCount() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectFile();
    void connectEdit();
    void connectView();
    void fillStatusBar();

    NotePage *addPage(const QString &name);
    [[nodiscard]] NotePage *pageAt(int index) const;
    void newNote();
    void chooseNotes();
    bool save(NotePage &page);
    bool saveAs(NotePage &page);
    bool mayClose(int index);
    void closeNote(int index);
    void signNote();
    void editPreferences();
    void setPreferences(const Preferences &preferences);
    void zoom(int points);
    void showAbout();
    void changeCurrent();
    void showState(NotePage *page);

    NotebookActions m_actions;
    Preferences m_preferences;
    QTabWidget *m_tabs;
    FindBar *m_findBar;
    QLabel *m_saved;
    QLabel *m_words;
    QLabel *m_position;
    int m_untitled = 0;
};
