#include "Reporting.h"

#include <Wexel/WXLWexel.h>

#include "Cart.h"
#include "Log.h"

using wexel::WXLWexel;
using ReportData = std::shared_ptr<wexel::WXLWexelReportData>;

Reporting::Reporting(const Cart &cart) : m_cart(cart)
{
    WXLWexel::sharedInstance().setOnPrepareData([this](const ReportData &report) {
        report->quickFacts = quickFacts();
        return report;
    });
}

Reporting::~Reporting()
{
    WXLWexel::sharedInstance().setOnPrepareData({});
}

QString Reporting::quickFacts() const
{
    return tr("Page: %1\nItems in cart: %2\nCart total: € %3")
        .arg(m_page)
        .arg(m_cart.count())
        .arg(m_cart.totalCents() / 100.0, 0, 'f', 2);
}

void Reporting::setPage(const QString &page)
{
    if (page == m_page)
        return;
    m_page = page;
    qCInfo(cafe).noquote() << "Page:" << page;
    Q_EMIT pageChanged();
}

void Reporting::setBlackBoxEnabled(bool enabled)
{
    if (enabled == m_blackBoxEnabled)
        return;
    m_blackBoxEnabled = enabled;
    WXLWexel::setBlackBoxEnabled(enabled);
    Q_EMIT blackBoxEnabledChanged();
}

void Reporting::reportWithScreenshot(const QString &description)
{
    qCInfo(cafe).noquote() << "Report with a screenshot:" << description;
    WXLWexel::autoReportWithAttachScreenshot(true, description);
}

void Reporting::reportWithoutScreenshot(const QString &description)
{
    qCInfo(cafe).noquote() << "Report without a screenshot:" << description;
    WXLWexel::autoReportWithDescription(description);
}

void Reporting::reportAutomatically()
{
    qCInfo(cafe) << "Automatic report";
    WXLWexel::autoReport();
}
