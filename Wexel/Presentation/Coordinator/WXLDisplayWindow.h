#pragma once

#include <functional>

#include <QQmlEngine>
#include <QQuickWindow>

namespace wexel {

class FlowView;

/// The window of the reporting flow. It lies exactly over the stage, above everything of the host's, and follows it; the
/// host's windows take no input while it is there. With it Qt Quick's engine comes and goes. Main thread only.
class WXLDisplayWindow final : public QQuickWindow
{
    Q_OBJECT

public:
    WXLDisplayWindow();
    ~WXLDisplayWindow() override;

    /// The user wants to close the window; the stage is gone for good, or the application is about to quit.
    std::function<void()> onCloseRequest;
    std::function<void()> onStageLost;

    /// There once a screen could be made.
    [[nodiscard]] FlowView &view() const { return *m_view; }
    /// Makes a screen of its document, for the navigation controller to show. Null, and a line in the log, when Qt Quick
    /// cannot make it.
    template <typename Controller>
    Controller *screen(const char *document)
    {
        return static_cast<Controller *>(makeScreen(document));
    }
    void makeKeyAndVisible();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QQuickItem *make(const char *document, QQuickItem *parent);
    QQuickItem *makeScreen(const char *document);
    void followStage();

    QQmlEngine m_engine;
    FlowView *m_view = nullptr;
};

} // namespace wexel
