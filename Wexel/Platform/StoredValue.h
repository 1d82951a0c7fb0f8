#pragma once

#include <optional>

#include <QByteArray>
#include <QVariant>

namespace wexel {

/// One value as it stands in the store's file.
struct StoredValue {
    /// Written to the file: never renumber.
    enum Kind : int {
        PropertyList = 0, ///< CBOR (RFC 8949) of any value but a byte buffer
        Bytes = 1, ///< a byte buffer as it is
        DeflatedBytes = 2, ///< a byte buffer behind zlib, with its length in four bytes in front
        Digests = 3, ///< of the pieces that a byte buffer lies in, see StoreTable; not a value itself
    };

    Kind kind = PropertyList;
    QByteArray content;

    /// Nothing for a value that is not a property-list value.
    [[nodiscard]] static std::optional<StoredValue> fromVariant(const QVariant &value);
    /// The value; invalid when the content is damaged.
    [[nodiscard]] QVariant toVariant() const;
    /// The same value in fewer bytes where that is possible.
    [[nodiscard]] StoredValue compressed() const;
};

} // namespace wexel
