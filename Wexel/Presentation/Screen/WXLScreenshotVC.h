#pragma once

#include <memory>

#include <QColor>
#include <QImage>
#include <QQuickItem>

#include "Presentation/Screen/WXLScreenshotView.h"
#include "Presentation/Screen/WXLToolbarContainerView.h"

namespace wexel {

class WXLAppRepository;
class WXLBranding;
class WXLScreenshotVM;

/// The first screen of the flow: the tester marks the bug on the screenshot, draws or blurs, picks a colour, clears all
/// marks. Main thread only.
class WXLScreenshotVC : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(wexel::WXLScreenshotView *screenshotView MEMBER m_screenshotView NOTIFY layoutChanged REQUIRED)
    Q_PROPERTY(wexel::WXLToolbarContainerView *toolbar MEMBER m_toolbar NOTIFY layoutChanged REQUIRED)
    Q_PROPERTY(double navigationBarBottom MEMBER m_navigationBarBottom NOTIFY layoutChanged)
    Q_PROPERTY(double safeBottom MEMBER m_safeBottom NOTIFY layoutChanged)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor NOTIFY brandingChanged)

public:
    explicit WXLScreenshotVC(QQuickItem *parent = nullptr);
    ~WXLScreenshotVC() override;

    /// The screen is complete and gets what it works with. Once.
    /// \param appRepository outlives the screen
    void viewDidLoad(std::shared_ptr<WXLScreenshotVM> viewModel, const WXLBranding &branding,
                     WXLAppRepository &appRepository);

    Q_INVOKABLE void nextButtonTapped();
    Q_INVOKABLE void closeButtonTapped();

Q_SIGNALS:
    void layoutChanged();
    void brandingChanged();

protected:
    void geometryChange(const QRectF &geometry, const QRectF &previous) override;

private:
    void setScreenshotImageView();
    void layOutImage();
    void updateBranding(const WXLBranding &branding);
    void useInitialColor();
    void toolTapped(WXLToolbarContainerView::Tool tool);
    void reset();
    void blurTapped();
    void drawTapped();
    void paletteTapped();
    void clearPaletteButtonPressed();
    void colorButtonPressed(int index);
    void bake();

    std::shared_ptr<WXLScreenshotVM> m_viewModel;
    WXLAppRepository *m_appRepository = nullptr;
    WXLScreenshotView *m_screenshotView = nullptr;
    WXLToolbarContainerView *m_toolbar = nullptr;
    QImage m_initialScreenshot;
    QColor m_backgroundColor;
    double m_navigationBarBottom = 0;
    double m_safeBottom = 0;
    double m_ratio = 0; ///< of the stage, height to width, when the screen was loaded
};

} // namespace wexel
