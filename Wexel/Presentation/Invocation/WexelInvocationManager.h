#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Helpers/WXLEdgeSwipeHandler.h"

class QObject;

namespace wexel {

class NotificationCenter;
class WXLAppRepository;
class WXLClickableWindow;
class WXLUserEventReporter;

/// Turns the tester's gestures into the start of the reporting flow. The triggers live as long as the application object;
/// a second `start` installs the chosen ones again. Main thread only.
class WexelInvocationManager
{
public:
    /// Everything outlives the manager.
    struct Collaborators {
        WXLAppRepository &appRepository;
        WXLUserEventReporter &userEventReporter;
        NotificationCenter &notifications;
        std::function<QString()> timestamp;
        std::function<void()> display; ///< opens the flow unless one is open
    };

    explicit WexelInvocationManager(Collaborators collaborators);
    ~WexelInvocationManager();
    WexelInvocationManager(const WexelInvocationManager &) = delete;
    WexelInvocationManager &operator=(const WexelInvocationManager &) = delete;

    /// \param events combination of `WexelInvocationEvent`. Installs nothing: only shaking, which is tested at each shake,
    ///        follows at once.
    void setInvocationEvents(unsigned events) { m_invocationEvent = events; }
    [[nodiscard]] bool containsWexelInvocationEvent(unsigned event) const
    {
        return (m_invocationEvent & event) != 0;
    }
    /// Registers the typefaces and installs the triggers. Does nothing in a process without a screen.
    void start();
    /// Takes the library's windows away, for good.
    void closeWindows();

private:
    void setupInvocationEnvironment(QObject *application);
    void setupFloatingButton();
    void setupScreenshotTrigger(QObject *application);
    void setupEdgeTrigger(QObject *application);
    void motionBegan() const;
    void invokeWexel();

    Collaborators m_with;
    unsigned m_invocationEvent = 0;
    std::vector<std::unique_ptr<WXLClickableWindow>> m_floatingWindows;
    WXLEdgeSwipeHandler m_edgeSwipeHandler;
    bool m_listensToMotion = false;
    bool m_listensToScreenshots = false;
};

} // namespace wexel
