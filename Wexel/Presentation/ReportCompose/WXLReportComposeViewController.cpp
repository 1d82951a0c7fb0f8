#include "Presentation/ReportCompose/WXLReportComposeViewController.h"

#include <utility>

#include <QGuiApplication>
#include <QInputMethod>

#include "Presentation/Helpers/Colors.h"
#include "Presentation/ReportCompose/WXLReportComposeViewModel.h"

namespace wexel {

WXLReportComposeViewController::WXLReportComposeViewController(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

WXLReportComposeViewController::~WXLReportComposeViewController()
{
    if (m_viewModel)
        m_viewModel->brandingRefresCallback = {};
}

void WXLReportComposeViewController::viewDidLoad(std::shared_ptr<WXLReportComposeViewModel> viewModel)
{
    m_viewModel = std::move(viewModel);
    m_viewModel->brandingRefresCallback = [this] { Q_EMIT brandingChanged(); };
    m_resizingTextView->setPlaceholder(WXLReportComposeViewModel::placeholder());
    m_resizingTextView->setText(m_viewModel->bugDescription.value_or(QString()));
    m_email = m_viewModel->emailAddress.value_or(QString());
    Q_EMIT emailChanged();
    Q_EMIT attachmentsChanged();
}

void WXLReportComposeViewController::viewDidAppear()
{
    if (std::exchange(m_viewModel->shownFirstTime, false))
        m_resizingTextView->becomeFirstResponder();
    m_resizingTextView->placeCaret();
}

QList<QImage> WXLReportComposeViewController::attachments() const
{
    return m_viewModel ? m_viewModel->attachments() : QList<QImage>();
}

QColor WXLReportComposeViewController::backgroundColor()
{
    return Colors::defaultDarkBlueColor();
}

// What an input method has not handed over yet belongs to the text, too.
void WXLReportComposeViewController::endEditing()
{
    QGuiApplication::inputMethod()->commit();
}

void WXLReportComposeViewController::submitButtonPressed()
{
    endEditing();
    m_viewModel->didPressSubmitButton(m_resizingTextView->shownText(), m_email);
}

void WXLReportComposeViewController::backButtonAction()
{
    endEditing();
    const QString text = m_resizingTextView->shownText();
    m_viewModel->didPressBackButton(text == WXLReportComposeViewModel::placeholder() ? std::nullopt
                                                                                     : std::optional(text));
    Q_EMIT popped();
}

void WXLReportComposeViewController::inspectButtonPressed()
{
    endEditing();
    m_viewModel->didPressInspectButton();
}

void WXLReportComposeViewController::deleteAttachment(int index)
{
    m_viewModel->didPressDeleteAttachment(index);
    Q_EMIT attachmentsChanged();
}

void WXLReportComposeViewController::emailEdited(const QString &text)
{
    m_email = text;
    m_isEmailEdited = true;
    Q_EMIT emailChanged();
}

} // namespace wexel
