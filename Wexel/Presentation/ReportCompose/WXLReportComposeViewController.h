#pragma once

#include <memory>

#include <QImage>
#include <QList>
#include <QQuickItem>

#include "Presentation/Textview/WXLResizingTextView.h"

namespace wexel {

class WXLReportComposeViewModel;

/// The second screen of the flow: a description, an e-mail address, what is attached; from here the report is inspected and
/// submitted. Main thread only.
class WXLReportComposeViewController : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(wexel::WXLResizingTextView *resizingTextView MEMBER m_resizingTextView NOTIFY loaded REQUIRED)
    Q_PROPERTY(QString email MEMBER m_email NOTIFY emailChanged)
    Q_PROPERTY(bool isEmailEdited MEMBER m_isEmailEdited NOTIFY emailChanged)
    Q_PROPERTY(QList<QImage> attachments READ attachments NOTIFY attachmentsChanged)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY brandingChanged)

public:
    explicit WXLReportComposeViewController(QQuickItem *parent = nullptr);
    ~WXLReportComposeViewController() override;

    /// The screen is complete and gets what it works with. Once.
    void viewDidLoad(std::shared_ptr<WXLReportComposeViewModel> viewModel);
    /// The screen has come to its place.
    void viewDidAppear();
    [[nodiscard]] QList<QImage> attachments() const;
    [[nodiscard]] static QColor backgroundColor();

    Q_INVOKABLE void submitButtonPressed();
    Q_INVOKABLE void backButtonAction();
    Q_INVOKABLE void inspectButtonPressed();
    Q_INVOKABLE void deleteAttachment(int index);
    /// The tester has changed the address.
    Q_INVOKABLE void emailEdited(const QString &text);

Q_SIGNALS:
    void loaded();
    void emailChanged();
    void attachmentsChanged();
    void brandingChanged();
    void popped(); ///< the tester wants to go back

private:
    static void endEditing();

    std::shared_ptr<WXLReportComposeViewModel> m_viewModel;
    WXLResizingTextView *m_resizingTextView = nullptr;
    QString m_email;
    bool m_isEmailEdited = false;
};

} // namespace wexel
