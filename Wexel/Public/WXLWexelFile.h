#pragma once

#include <memory>

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <Wexel/SecureCoding.h>

namespace wexel {

struct ArchivableClass;

/// A named blob: the screenshot or an attachment of a report. Immutable, so it may be shared between threads.
class WEXEL_EXPORT WXLWexelFile final : public SecureCoding
{
public:
    /// \param name file name as shown and uploaded, for example "screenshot.jpg"
    /// \param data the content, any bytes
    WXLWexelFile(QString name, QByteArray data);

    /// Reads the content of a local file now. Null when the file cannot be read.
    [[nodiscard]] static std::shared_ptr<WXLWexelFile> initWithName(const QString &name, const QUrl &fileUrl);
    /// As above, named after the last component of the URL's path.
    [[nodiscard]] static std::shared_ptr<WXLWexelFile> initWithFileURL(const QUrl &fileUrl);

    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] const QByteArray &data() const { return m_data; }

    /// True when both hold the same bytes; the names are deliberately not compared.
    [[nodiscard]] bool fileIsEqual(const WXLWexelFile &other) const;

    [[nodiscard]] QString codingClassName() const override;
    void encodeWithCoder(Coder &coder) const override;
    /// How an archive makes such a file again; internal to the library.
    [[nodiscard]] static const ArchivableClass &archivableClass();

private:
    QString m_name;
    QByteArray m_data;
};

} // namespace wexel
