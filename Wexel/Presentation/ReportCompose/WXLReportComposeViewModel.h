#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QImage>
#include <QList>
#include <QString>

namespace wexel {

class NotificationCenter;
class WXLWexelFile;
class WXLWexelReportData;

/// What stands behind the compose screen: how a description and an e-mail address become part of the report. All callbacks
/// but `brandingRefresCallback` are set before the screen is shown. Main thread only.
class WXLReportComposeViewModel
{
public:
    /// \param reportData shared with the whole flow
    /// \param notifications tells of another branding; outlives the view model
    WXLReportComposeViewModel(std::shared_ptr<WXLWexelReportData> reportData,
                              NotificationCenter &notifications);
    ~WXLReportComposeViewModel();
    WXLReportComposeViewModel(const WXLReportComposeViewModel &) = delete;
    WXLReportComposeViewModel &operator=(const WXLReportComposeViewModel &) = delete;

    /// The report is complete, with the e-mail address if there is a field for one.
    std::function<void(const std::shared_ptr<WXLWexelReportData> &, const std::optional<QString> &)>
        submitButtonPressed;
    std::function<void()> brandingRefresCallback; ///< the screens' colours have changed
    /// With the description so far; nothing while only the placeholder shows.
    std::function<void(const std::optional<QString> &)> backButtonPressed;
    std::function<void()> onDidPressInspectButton;
    std::function<void(const std::shared_ptr<WXLWexelFile> &)> onDidPressDeleteAttachment;

    std::optional<QString> bugDescription; ///< from an earlier visit
    std::optional<QString> emailAddress; ///< the last one that was submitted
    bool shownFirstTime = false; ///< true only on the first visit of a flow

    /// What stands in the description field while nothing has been typed. A description that reads the same is none.
    [[nodiscard]] static QString placeholder();

    void didPressSubmitButton(const QString &description, const std::optional<QString> &email) const;
    void didPressBackButton(const std::optional<QString> &description) const;
    void didPressInspectButton() const;
    /// The pictures that are attached: the screenshot, unless it was removed or has no data.
    [[nodiscard]] QList<QImage> attachments() const;
    /// \param index of the attachment; there is one at most
    void didPressDeleteAttachment(int index) const;

private:
    void brandingUpdatedNotification() const;

    std::shared_ptr<WXLWexelReportData> m_reportData;
    NotificationCenter &m_notifications;
    const int m_observer;
};

} // namespace wexel
