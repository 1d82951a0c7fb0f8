#pragma once

#include <memory>

#include <QColor>
#include <QImage>
#include <QList>
#include <QQuickItem>
#include <QStringList>

#include "Presentation/InspectBug/WXLInspectBugVM.h"

namespace wexel {

class WXLBranding;

/// The third screen of the flow, read-only: what the report will carry. Main thread only.
class WXLInspectBugVC : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString os READ os NOTIFY loaded)
    Q_PROPERTY(QString device READ device NOTIFY loaded)
    Q_PROPERTY(QString appVersion READ appVersion NOTIFY loaded)
    Q_PROPERTY(QString network READ network NOTIFY loaded)
    Q_PROPERTY(QString currentView READ currentView NOTIFY loaded)
    Q_PROPERTY(QString locale READ locale NOTIFY loaded)
    Q_PROPERTY(QString availableMemory READ availableMemory NOTIFY loaded)
    Q_PROPERTY(QString availableStorage READ availableStorage NOTIFY loaded)
    Q_PROPERTY(QString resolution READ resolution NOTIFY loaded)
    Q_PROPERTY(QString sdkVersion READ sdkVersion NOTIFY loaded)
    Q_PROPERTY(bool hasNetwork READ hasNetwork NOTIFY loaded)
    Q_PROPERTY(QList<QImage> attachments READ attachments NOTIFY loaded)
    Q_PROPERTY(QStringList grantedPermissions READ grantedPermissions NOTIFY loaded)
    Q_PROPERTY(QString permissionsDescription READ permissionsDescription NOTIFY loaded)
    Q_PROPERTY(QString quickFacts READ quickFacts NOTIFY loaded)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor NOTIFY loaded)

public:
    explicit WXLInspectBugVC(QQuickItem *parent = nullptr);

    /// The screen is complete and gets what it shows. Once.
    void viewDidLoad(std::unique_ptr<WXLInspectBugVM> viewModel, const WXLBranding &branding);

    // As the view model has them; empty before it is there.
    [[nodiscard]] QString os() const;
    [[nodiscard]] QString device() const;
    [[nodiscard]] QString appVersion() const;
    [[nodiscard]] QString network() const;
    [[nodiscard]] QString currentView() const;
    [[nodiscard]] QString locale() const;
    [[nodiscard]] QString availableMemory() const;
    [[nodiscard]] QString availableStorage() const;
    [[nodiscard]] QString resolution() const;
    [[nodiscard]] QString sdkVersion() const;
    [[nodiscard]] bool hasNetwork() const;
    [[nodiscard]] QList<QImage> attachments() const;
    [[nodiscard]] QStringList grantedPermissions() const;
    [[nodiscard]] QString permissionsDescription() const;
    [[nodiscard]] QString quickFacts() const;

    /// What the header that stays in place reads: the last section whose own header has come up to it.
    /// \param middles of the sections' headers, from the first section to the last, on the screen
    /// \param topHeaderYPosition the middle of the header that stays
    Q_INVOKABLE [[nodiscard]] static QString headerText(const QList<double> &middles,
                                                        double topHeaderYPosition);

Q_SIGNALS:
    void loaded();
    void popped(); ///< the tester wants to go back

private:
    std::unique_ptr<WXLInspectBugVM> m_viewModel;
    QColor m_backgroundColor;
};

} // namespace wexel
