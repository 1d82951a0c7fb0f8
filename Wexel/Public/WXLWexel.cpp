#include <Wexel/WXLWexel.h>

#include "Business/Composition.h"
#include "Business/Flow.h"
#include "Business/WXLWexelPrivate.h"

namespace wexel {

const char *const WexelVersionString = "@(#)PROGRAM:Wexel  PROJECT:Wexel-1\n";

WXLWexel::WXLWexel() : d(makeWexel(makeFlow())) { }

WXLWexel::~WXLWexel() = default;

// Here, not beside its class: only the entry has everything that is gathered from.
WXLWexelReportData::WXLWexelReportData()
    : WXLWexelReportData(WXLWexel::sharedInstance().d->setupDefaultData())
{
}

WXLWexel &WXLWexel::sharedInstance()
{
    static auto *instance = new WXLWexel; // never destroyed, see ApplicationEnd
    return *instance;
}

void WXLWexel::start()
{
    startWithInvocationEvents(WexelInvocationEventMotion);
}

void WXLWexel::startWithInvocationEvents(unsigned events)
{
    sharedInstance().d->startWithInvocationEvents(events);
}

void WXLWexel::manualStart()
{
    sharedInstance().d->display();
}

void WXLWexel::setBlackBoxEnabled(bool enabled)
{
    sharedInstance().d->setBlackBoxEnabled(enabled);
}

void WXLWexel::autoReportWithAttachScreenshot(bool attachScreenshot,
                                              const std::optional<QString> &description)
{
    sharedInstance().d->autoReport(attachScreenshot, description);
}

void WXLWexel::autoReportWithAttachScreenshot(bool attachScreenshot)
{
    autoReportWithAttachScreenshot(attachScreenshot, QString());
}

void WXLWexel::autoReportWithDescription(const std::optional<QString> &description)
{
    autoReportWithAttachScreenshot(false, description);
}

void WXLWexel::autoReport()
{
    autoReportWithAttachScreenshot(false, QString());
}

const WXLWexel::PrepareData &WXLWexel::onPrepareData() const
{
    return d->onPrepareData;
}

void WXLWexel::setOnPrepareData(PrepareData block)
{
    d->onPrepareData = std::move(block);
}

} // namespace wexel
