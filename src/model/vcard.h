#pragma once

#include "model/recipient.h"

#include <QByteArray>

#include <optional>

namespace ledra {

/// The first contact of a vCard (RFC 6350, and versions 2.1 and 3.0): its name, organisation, preferred
/// postal address and e-mail address. Nothing for a text that holds none. A country is found by its code or
/// its name in English or German; otherwise `country` stands for it.
std::optional<Recipient> recipientFromVCard(const QByteArray& text, const Country& country);

} // namespace ledra
