#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "values/date.h"

namespace velta {

/// The IBAN of the account that a text names, without blanks: "CZ6508000000192000145399". An
/// account is a Czech number ("19-2000145399/0800": a prefix of up to six digits or none, two to
/// ten digits, a bank code of four) or an IBAN of any country, with right check digits. It is the
/// whole text, and then may have blanks in it and "IBAN" before it, or one of its words; a word
/// that may be but the end of a number ("19 2000145399/0800") does not count. Nullopt where there
/// is none, or more than one: which should be paid to?
std::optional<std::string> IbanIn(std::string_view text);

/// What a QR Platba code says (Short Payment Descriptor 1.0), for the debtor's bank to fill in the
/// payment: "SPD*1.0*ACC:…*AM:…*CC:CZK*X-VS:…*DT:…*MSG:PENALIZACNI FAKTURA …". `amount` is in
/// crowns, "1234.50". A number that is no variable symbol (one to ten digits) is in the message
/// only. Nullopt where `account` names no account, and for an amount that cannot be paid so:
/// nothing, less than nothing or ten million.
std::optional<std::string> PaymentCode(std::string_view account, std::string_view amount, Date due,
                                       std::string_view invoice_number);

}  // namespace velta
