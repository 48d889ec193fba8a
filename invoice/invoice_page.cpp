#include "invoice/invoice_page.h"

#include <initializer_list>
#include <string_view>
#include <variant>

#include "calc/account_texts.h"
#include "shell/common/addresses.h"
#include "shell/common/page.h"

namespace velta {

namespace {

// The columns of the page.
constexpr int kLeftEdge = 5;
constexpr int kRightEdge = 90;
constexpr int kDivider = 48;  // between supplier and customer
constexpr int kText = 6;
constexpr int kValue = 74;

constexpr std::size_t kRuleLength = 84;
constexpr std::size_t kSignatureLength = 43;

constexpr int kTopLines = 2;
// Empty lines of the box: room for the stamp above the signature's line and below it.
constexpr int kRoomToSign = 3;
constexpr int kRoomBelowSignature = 3;

/// A text of a boxed line and the column at which it stands.
struct Cell {
  int column;
  std::string_view text;
};

void Boxed(Page& page, std::initializer_list<Cell> cells) {
  page.WriteAt(kLeftEdge, "|");
  for (const Cell& cell : cells) page.WriteAt(cell.column, cell.text);
  page.WriteAt(kRightEdge, "|");
  page.EndLine();
}

void EmptyBoxed(Page& page, int count) {
  for (int i = 0; i < count; ++i) Boxed(page, {});
}

void Rule(Page& page) { Boxed(page, {{kText, std::string(kRuleLength, '-')}}); }

/// A line of the account: what it is and how much.
void Item(Page& page, std::string_view label, std::string_view value, int value_column = kValue) {
  Boxed(page, {{kText, label}, {value_column, value}});
}

void WriteParties(Page& page, const InvoiceParty& supplier, const InvoiceParty& customer) {
  constexpr int kSupplier = 16;
  constexpr int kCustomer = 59;
  constexpr int kSupplierSide = 9;
  constexpr int kCustomerSide = 51;
  constexpr Cell kDivide{kDivider, "|"};
  Boxed(page, {{kSupplierSide, "Dodavatel"},
               {26, "IČO " + supplier.company_number},
               kDivide,
               {kCustomerSide, "Odběratel"},
               {67, "IČO "},
               {71, customer.company_number}});
  Boxed(page, {{kSupplier, "DIČ " + supplier.tax_number},
               kDivide,
               {kCustomer, "DIČ " + customer.tax_number}});
  Boxed(page, {{kSupplier, supplier.name}, kDivide, {kCustomer, customer.name}});
  Boxed(page, {{kSupplier, supplier.street}, kDivide, {kCustomer, customer.street}});
  Boxed(page, {{kSupplierSide, supplier.postcode},
               {kSupplier, supplier.town},
               kDivide,
               {kCustomerSide, customer.postcode},
               {kCustomer, customer.town}});
}

void WriteHead(Page& page, const Invoice& invoice, const ProgramSettings& settings,
               std::string_view total, const ui::LocaleFormat& locale) {
  constexpr int kLabel = 9;
  constexpr int kHeadValue = 30;
  page.EmptyLines(kTopLines);
  page.WriteAt(kLabel, "Penalizační faktura číslo : " + invoice.number);
  page.EndLine();
  Rule(page);
  // The symbol has its place up to column 50.
  Boxed(page, {{kLabel, "Variabilní symbol"}, {kHeadValue, invoice.number}, {51, ""}});
  Boxed(page, {{kLabel, "Datum vystavení"}, {kHeadValue, ShortDateText(invoice.issued, locale)}});
  Boxed(page, {{kLabel, "Datum splatnosti"}, {kHeadValue, ShortDateText(invoice.due, locale)}});
  Rule(page);
  WriteParties(page, invoice.supplier, invoice.customer);
  Rule(page);
  Boxed(page, {{kText, settings.Rejstrik}});
  Rule(page);
  Item(page, "Položka - popis", "Částka v Kč");
  Rule(page);
  EmptyBoxed(page, 2);
  Item(page, settings.TextRadku, total);
  EmptyBoxed(page, 2);
  Rule(page);
  EmptyBoxed(page, 1);
}

void WriteOriginalInvoice(Page& page, const Invoice& invoice) {
  Item(page, "Faktura číslo ", invoice.original_number);
}

void WriteRate(Page& page, std::string_view text, int column = kValue) {
  Item(page, "Úroková sazba ", text, column);
}

void WriteRate(Page& page, const SingleResult& result, const ui::LocaleFormat& locale) {
  switch (result.kind) {
    case RateKind::kDiscount:
      return WriteRate(page, RateWithUnit(result.rate, "%", locale));
    case RateKind::kRepo:
      return WriteRate(page, "2T REPO + 7 %");
    default:
      return WriteRate(page, RateWithUnit(result.rate, Text(result.kind), locale));
  }
}

void WriteBody(Page& page, const Invoice& invoice, const SingleResult& result,
               const ui::LocaleFormat& locale) {
  WriteOriginalInvoice(page, invoice);
  Item(page, "Na částku ", CurrencyText(result.base_amount, locale));
  Item(page, "Splatná dne ", ShortDateText(result.due_date, locale));
  Item(page, "Uhrazená dne ", ShortDateText(result.payment_date, locale));
  Item(page, "Počet dnů prodlení ", std::to_string(result.days), kValue - 1);
  WriteRate(page, result, locale);
}

// Of the bank's kinds the texts differ from those of the single calculation, and a typed rate
// stands one column further left.
void WriteRate(Page& page, const ProgressiveResult& result, const ui::LocaleFormat& locale) {
  switch (result.kind) {
    case RateKind::kDiscount:
      return WriteRate(page, "2*diskontní ČNB");
    case RateKind::kRepo:
      return WriteRate(page, "2T REPO ČNB + 7%");
    default:
      return WriteRate(page, RateWithUnit(result.rate, result.kind_text, locale), kValue - 1);
  }
}

void WriteBody(Page& page, const Invoice& invoice, const ProgressiveResult& result,
               const ui::LocaleFormat& locale) {
  WriteOriginalInvoice(page, invoice);
  Item(page, "Splatná dne ", ShortDateText(result.due_date, locale));
  WriteRate(page, result, locale);
  EmptyBoxed(page, 1);
  constexpr int kAmount = 26;
  constexpr int kBalance = 46;
  Boxed(page, {{kText, "Datum úhrady"},
               {kAmount, "Výše úhrady"},
               {kBalance, "Zůstatek dluhu"},
               {kValue, "Úrok z prod."}});
  for (const Payment& payment : result.payments) {
    // What the payment adds to the total, so that the column adds up to the invoiced amount. Only
    // the interest of one single half-year is exact here and rounded there.
    Boxed(page, {{kText, ShortDateText(payment.date, locale)},
                 {kAmount, CurrencyText(payment.amount, locale)},
                 {kBalance, CurrencyText(payment.balance, locale)},
                 {kValue, CurrencyText(payment.interest_sum, locale)}});
  }
}

void WriteAccount(Page& page, const ProgramSettings& settings) {
  EmptyBoxed(page, 2);
  Boxed(page, {{kText, "Úhradu proveďte na číslo účtu "}});
  Boxed(page, {{kText, settings.Banka}});
}

/// The signature and the closing texts.
void WriteFoot(Page& page, const ProgramSettings& settings) {
  constexpr int kSignature = 34;
  EmptyBoxed(page, kRoomToSign);
  Boxed(page, {{kText, "Fakturoval "}, {kSignature, std::string(kSignatureLength, '-')}});
  Boxed(page, {{kSignature, "Razítko a podpis"}});
  EmptyBoxed(page, kRoomBelowSignature);
  for (const std::string* text : {&settings.Dovetek0, &settings.Dovetek1, &settings.Dovetek2}) {
    Boxed(page, {{kText, *text}});
  }
  EmptyBoxed(page, 2);
  Rule(page);
  page.WriteAt(kText, "Faktura byla vystavena v programu Velta, kontakt ");
  page.Write(kHomePage);
  page.EndLine();
}

int LinesOfFoot(const ProgramSettings& settings) {
  Page foot("");
  WriteFoot(foot, settings);
  return foot.LineCount();
}

std::string TotalText(const SingleResult& result, const ui::LocaleFormat& locale) {
  return CurrencyText(result.interest, locale);
}

std::string TotalText(const ProgressiveResult& result, const ui::LocaleFormat& locale) {
  return CurrencyText(result.total, locale);
}

}  // namespace

std::string InvoicedTotal(const FinishedCalculation& calculation, const ui::LocaleFormat& locale) {
  return std::visit([&](const auto* result) { return TotalText(*result, locale); }, calculation);
}

ui::PrintedDocument InvoicePage(const Invoice& invoice, const ProgramSettings& settings,
                                const FinishedCalculation& calculation,
                                const ui::LocaleFormat& locale) {
  Page page("Penalizační faktura");
  WriteHead(page, invoice, settings, InvoicedTotal(calculation, locale), locale);
  std::visit([&](const auto* result) { WriteBody(page, invoice, *result, locale); }, calculation);
  WriteAccount(page, settings);
  const int on_last_page = (page.LineCount() + LinesOfFoot(settings)) % ui::kLinesOfPage;
  if (on_last_page > 0) EmptyBoxed(page, ui::kLinesOfPage - on_last_page);
  WriteFoot(page, settings);
  return page.Take();
}

}  // namespace velta
