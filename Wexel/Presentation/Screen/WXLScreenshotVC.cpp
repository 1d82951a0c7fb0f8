#include "Presentation/Screen/WXLScreenshotVC.h"

#include <utility>

#include <QQuickWindow>

#include "Business/WXLAppRepository.h"
#include "Presentation/Helpers/PictureItem.h"
#include "Presentation/Helpers/SafeArea.h"
#include "Presentation/Helpers/WXLBranding.h"
#include "Presentation/Screen/EditorLayout.h"
#include "Presentation/Screen/WXLOverlayView.h"
#include "Presentation/Screen/WXLScreenshotVM.h"

namespace wexel {

using Toolbar = WXLToolbarContainerView;

WXLScreenshotVC::WXLScreenshotVC(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
    connect(this, &WXLScreenshotVC::layoutChanged, this, &WXLScreenshotVC::layOutImage);
}

WXLScreenshotVC::~WXLScreenshotVC() = default;

void WXLScreenshotVC::viewDidLoad(std::shared_ptr<WXLScreenshotVM> viewModel, const WXLBranding &branding,
                                  WXLAppRepository &appRepository)
{
    m_viewModel = std::move(viewModel);
    m_appRepository = &appRepository;
    connect(m_toolbar, &Toolbar::toolPressed, this, &WXLScreenshotVC::toolTapped);
    connect(m_toolbar, &Toolbar::clearPaletteButtonPressed, this,
            &WXLScreenshotVC::clearPaletteButtonPressed);
    connect(m_toolbar, &Toolbar::colorButtonPressed, this, &WXLScreenshotVC::colorButtonPressed);
    connect(m_toolbar, &Toolbar::colorSelected, this, &WXLScreenshotVC::clearPaletteButtonPressed);
    setScreenshotImageView();
    updateBranding(branding);
    useInitialColor();
    drawTapped();
    m_screenshotView->overlayView().NeedScreenshotBlock = [this] { bake(); };
    m_screenshotView->NeedScreenshotBlock = [this] { bake(); };
    m_screenshotView->overlayView().drawingStartedCallback = [this] { clearPaletteButtonPressed(); };
}

// Copies, so that a dab finds the shown image in nobody else's hands and need not copy it.
void WXLScreenshotVC::setScreenshotImageView()
{
    m_initialScreenshot = m_viewModel->screenshotImage.copy();
    m_screenshotView->screenshotImageView().setImage(m_viewModel->screenshotImage.copy());
    m_safeBottom = safeAreaMargins(window()).bottom();
    m_ratio = width() > 0 ? height() / width() : 1;
    Q_EMIT layoutChanged();
}

void WXLScreenshotVC::layOutImage()
{
    if (m_ratio <= 0) // not loaded yet
        return;
    const EditorLayout layout{size(), m_navigationBarBottom, m_toolbar->height(), m_safeBottom, m_ratio};
    m_screenshotView->setImageFrame(
        layout.imageFrame().translated(0, -m_navigationBarBottom)); // it begins there
}

void WXLScreenshotVC::geometryChange(const QRectF &geometry, const QRectF &previous)
{
    QQuickItem::geometryChange(geometry, previous);
    layOutImage();
}

void WXLScreenshotVC::updateBranding(const WXLBranding &branding)
{
    m_backgroundColor = branding.backgroundColor;
    Q_EMIT brandingChanged();
}

void WXLScreenshotVC::useInitialColor()
{
    const QList<QColor> colors = Toolbar::paletteColors();
    // A store may hold anything.
    m_screenshotView->overlayView().setDrawingColor(
        colors.value(m_appRepository->lastUsedColor().value_or(-1), colors.last()));
}

void WXLScreenshotVC::nextButtonTapped()
{
    m_viewModel->didPressNextButton();
}

void WXLScreenshotVC::closeButtonTapped()
{
    m_viewModel->didPressCloseButton();
}

void WXLScreenshotVC::toolTapped(Toolbar::Tool tool)
{
    switch (tool) {
    case Toolbar::Clear:
        return reset();
    case Toolbar::Blur:
        return blurTapped();
    case Toolbar::Draw:
        return drawTapped();
    case Toolbar::Palette:
        return paletteTapped();
    case Toolbar::NoTool:
        return;
    }
}

void WXLScreenshotVC::reset()
{
    m_viewModel->screenshotImage = m_initialScreenshot;
    m_screenshotView->screenshotImageView().setImage(m_initialScreenshot.copy());
}

void WXLScreenshotVC::blurTapped()
{
    m_toolbar->controlPressed(Toolbar::Blur, m_screenshotView->overlayView().drawingColor());
    m_screenshotView->setBlurEnabled(true);
}

void WXLScreenshotVC::drawTapped()
{
    m_toolbar->controlPressed(Toolbar::Draw, m_screenshotView->overlayView().drawingColor());
    m_screenshotView->setBlurEnabled(false);
}

void WXLScreenshotVC::paletteTapped()
{
    m_toolbar->animateShowingPaletteWithDrawingColor(m_screenshotView->overlayView().drawingColor());
}

void WXLScreenshotVC::clearPaletteButtonPressed()
{
    m_toolbar->animateHidingPalette();
}

void WXLScreenshotVC::colorButtonPressed(int index)
{
    const QList<QColor> colors = Toolbar::paletteColors();
    if (index < 0 || index >= colors.size())
        return;
    m_screenshotView->overlayView().setDrawingColor(colors[index]);
    m_appRepository->setLastUsedColor(index);
    drawTapped();
    m_toolbar->animateSelectingDrawingColorAt(index);
}

void WXLScreenshotVC::bake()
{
    const QImage image = m_screenshotView->bakedImage();
    m_viewModel->screenshotImage = image.copy(); // see setScreenshotImageView
    m_screenshotView->screenshotImageView().setImage(image);
}

} // namespace wexel
