#pragma once

#include <QColor>
#include <QList>
#include <QQuickItem>

#include "Presentation/InspectBug/WXLInspectBugVM.h"

namespace wexel {

class WXLBranding;

/// The third screen of the flow, read-only: what the report will carry. Main thread only.
class WXLInspectBugVC : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(wexel::WXLInspectBugVM viewModel READ viewModel NOTIFY loaded)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor NOTIFY loaded)

public:
    explicit WXLInspectBugVC(QQuickItem *parent = nullptr);

    /// The screen is complete and gets what it shows. Once.
    void viewDidLoad(const WXLInspectBugVM &viewModel, const WXLBranding &branding);
    [[nodiscard]] const WXLInspectBugVM &viewModel() const
    {
        return m_viewModel;
    } ///< of an empty report before

    /// What the header that stays in place reads: the last section whose own header has come up to it.
    /// \param middles of the sections' headers, from the first section to the last, on the screen
    /// \param topHeaderYPosition the middle of the header that stays
    Q_INVOKABLE [[nodiscard]] static QString headerText(const QList<double> &middles,
                                                        double topHeaderYPosition);

Q_SIGNALS:
    void loaded();
    void popped(); ///< the tester wants to go back

private:
    WXLInspectBugVM m_viewModel;
    QColor m_backgroundColor;
};

} // namespace wexel
