#pragma once

#include <string>

#include "calc/calculation_result.h"
#include "ui/printer.h"
#include "values/date.h"
#include "values/locale.h"
#include "windows/settings/settings.h"

namespace velta {

/// The supplier or the customer of an invoice; texts as they were typed.
struct InvoiceParty {
  std::string name;
  std::string street;
  std::string town;
  std::string postcode;
  std::string company_number;  ///< IČO
  std::string tax_number;      ///< DIČ
};

/// What the user has filled in on one penalty invoice.
struct Invoice {
  std::string number;           ///< also the variable symbol
  std::string original_number;  ///< of the overdue invoice
  InvoiceParty supplier;
  InvoiceParty customer;
  Date issued{};
  Date due{};
};

/// The interest that is invoiced, in currency form: on the invoice form and on its page alike.
std::string InvoicedTotal(const FinishedCalculation& calculation, const LocaleFormat& locale);

/// The printed penalty invoice: a box from column 5 to column 90, on one A4 page for a single
/// calculation and for at least twelve payments. Texts that are too long go on in further lines of
/// the box and are never cut off; empty lines of the box keep the signature and the closing texts
/// at the foot of the last page. The payment code is there where the settings name an account and
/// the page has room for it.
ui::PrintedDocument InvoicePage(const Invoice& invoice, const ProgramSettings& settings,
                                const FinishedCalculation& calculation, const LocaleFormat& locale);

}  // namespace velta
