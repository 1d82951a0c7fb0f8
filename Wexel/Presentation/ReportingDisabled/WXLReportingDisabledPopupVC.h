#pragma once

#include <functional>
#include <memory>

#include <QQuickItem>

namespace wexel {

/// What stands behind the popup. Main thread only.
class WXLReportingDisabledPopupVM
{
public:
    std::function<void()> dismissCallback;

    void didPressDismissButton() const { dismissCallback(); }
};

/// Lies over the editor while the backend takes no reports of the application; the only way on is out. Main thread only.
class WXLReportingDisabledPopupVC : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString explanation READ explanation CONSTANT)
    Q_PROPERTY(QString spokenExplanation READ spokenExplanation CONSTANT)

public:
    explicit WXLReportingDisabledPopupVC(QQuickItem *parent = nullptr);

    void viewDidLoad(std::shared_ptr<WXLReportingDisabledPopupVM> viewModel)
    {
        m_viewModel = std::move(viewModel);
    }

    /// As rich text, with an owl in the middle.
    [[nodiscard]] static QString explanation();
    /// Without the owl, for assistive technology.
    [[nodiscard]] static QString spokenExplanation();
    Q_INVOKABLE void dismissButtonAction() const { m_viewModel->didPressDismissButton(); }

private:
    std::shared_ptr<WXLReportingDisabledPopupVM> m_viewModel;
};

} // namespace wexel
