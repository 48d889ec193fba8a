#include "windows/invoice/invoice_page.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "app/addresses.h"
#include "app/page.h"
#include "calc/account_texts.h"
#include "values/letters.h"
#include "windows/invoice/payment_code.h"

namespace velta {

namespace {

// The columns of the page.
constexpr int kLeftEdge = 5;
constexpr int kRightEdge = 90;
constexpr int kDivider = 48;  // between supplier and customer
constexpr int kText = 6;
constexpr int kValue = 74;
// A value that is too wide for its column moves left up to here, beside the longest of the labels.
constexpr int kLeftmostValue = 26;

constexpr const char* kDocument = "Penalizační faktura";

constexpr std::size_t kRuleLength = 84;
constexpr std::size_t kSignatureLength = 43;

constexpr int kTopLines = 2;
// Empty lines of the box: room for the stamp above the signature's line and below it.
constexpr int kRoomToSign = 3;
constexpr int kRoomBelowSignature = 3;

/// A text of a boxed line and the column at which it stands.
struct Cell {
  int column;
  std::string text;
  /// A text that has no room in its place moves left, to this column at the utmost, before it is
  /// wrapped.
  int leftmost = column;
};

/// A cell as it is printed.
struct PlacedCell {
  int column;
  std::vector<std::string> lines;
};

/// Places cells that reach up to a bar, and adds them to `placed`. What fits between its column and
/// the next cell stays there as it is; what has to be moved or wrapped leaves a blank to its
/// neighbours, for two numbers must never read as one.
void Place(std::vector<PlacedCell>& placed, std::span<const Cell> cells, int bar) {
  std::vector<PlacedCell> from_the_right;
  int next = bar;  // the column that the cell may not reach
  int gap = 0;     // the blank that is to be left before it
  for (std::size_t i = cells.size(); i-- > 0;) {
    const Cell& cell = cells[i];
    int column = cell.column;
    const int width = WidthOf(Wrapped(cell.text, column, ui::kCellsOfLine));
    const bool fits = width <= next - column;
    if (!fits) column = std::clamp(next - gap - width, cell.leftmost, column);
    from_the_right.push_back(
        {column, Wrapped(cell.text, column, next - column - (fits ? 0 : gap))});
    next = fits ? column : column - 1;
    gap = fits ? 1 : 0;
  }
  placed.insert(placed.end(), from_the_right.rbegin(), from_the_right.rend());
}

/// A line of the box, or as many as the longest of its texts takes. `cells` stand in the order of
/// their columns; with `divided` a bar parts those on either side of the divider.
void Boxed(Page& page, const std::vector<Cell>& cells, bool divided = false) {
  const std::span<const Cell> all = cells;
  const auto left = static_cast<std::size_t>(
      divided ? std::count_if(all.begin(), all.end(),
                              [](const Cell& cell) { return cell.column < kDivider; })
              : 0);
  std::vector<PlacedCell> placed;
  Place(placed, all.first(left), kDivider);
  Place(placed, all.subspan(left), kRightEdge);

  std::size_t height = 1;
  for (const PlacedCell& cell : placed) height = std::max(height, cell.lines.size());
  for (std::size_t line = 0; line < height; ++line) {
    page.WriteAt(kLeftEdge, "|");
    for (std::size_t i = 0; i < placed.size(); ++i) {
      if (divided && i == left) page.WriteAt(kDivider, "|");
      if (line < placed[i].lines.size()) page.WriteAt(placed[i].column, placed[i].lines[line]);
    }
    page.WriteAt(kRightEdge, "|");
    page.EndLine();
  }
}

void EmptyBoxed(Page& page, int count) {
  for (int i = 0; i < count; ++i) Boxed(page, {});
}

void Rule(Page& page) { Boxed(page, {{kText, std::string(kRuleLength, '-')}}); }

/// A line of the account: what it is and how much.
void Item(Page& page, std::string_view label, std::string_view value, int value_column = kValue) {
  Boxed(page, {{kText, std::string(label)}, {value_column, std::string(value), kLeftmostValue}});
}

void WriteParties(Page& page, const InvoiceParty& supplier, const InvoiceParty& customer) {
  constexpr int kSupplier = 16;
  constexpr int kCustomer = 59;
  constexpr int kSupplierSide = 9;
  constexpr int kCustomerSide = 51;
  const auto write = [&](const std::vector<Cell>& cells) { Boxed(page, cells, true); };
  write({{kSupplierSide, "Dodavatel"},
         {26, "IČO " + supplier.company_number},
         {kCustomerSide, "Odběratel"},
         {67, "IČO "},
         {71, customer.company_number}});
  write({{kSupplier, "DIČ " + supplier.tax_number}, {kCustomer, "DIČ " + customer.tax_number}});
  write({{kSupplier, supplier.name}, {kCustomer, customer.name}});
  write({{kSupplier, supplier.street}, {kCustomer, customer.street}});
  write({{kSupplierSide, supplier.postcode},
         {kSupplier, supplier.town},
         {kCustomerSide, customer.postcode},
         {kCustomer, customer.town}});
}

void WriteHead(Page& page, const Invoice& invoice, const ProgramSettings& settings,
               std::string_view total, const LocaleFormat& locale) {
  constexpr int kLabel = 9;
  constexpr int kHeadValue = 30;
  page.EmptyLines(kTopLines);
  page.WriteAt(kLabel, "Penalizační faktura číslo : " + invoice.number);
  page.EndLine();
  Rule(page);
  // The empty cell ends the room of the symbol before column 51.
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

void WriteRate(Page& page, const SingleResult& result, const LocaleFormat& locale) {
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
               const LocaleFormat& locale) {
  WriteOriginalInvoice(page, invoice);
  Item(page, "Na částku ", CurrencyText(result.base_amount, locale));
  Item(page, "Splatná dne ", ShortDateText(result.due_date, locale));
  Item(page, "Uhrazená dne ", ShortDateText(result.payment_date, locale));
  Item(page, "Počet dnů prodlení ", std::to_string(result.days), kValue - 1);
  WriteRate(page, result, locale);
}

// On purpose the texts of the bank's kinds differ from those of the single calculation, and a typed
// rate stands one column further left.
void WriteRate(Page& page, const ProgressiveResult& result, const LocaleFormat& locale) {
  switch (result.kind) {
    case RateKind::kDiscount:
      return WriteRate(page, "2*diskontní ČNB");
    case RateKind::kRepo:
      return WriteRate(page, "2T REPO ČNB + 7%");
    default:
      return WriteRate(page, RateWithUnit(result.rate, result.kind_text, locale), kValue - 1);
  }
}

/// A row of the table of payments, in two lines where its sums (of trillions) need that much room.
void WritePayment(Page& page, const std::string& date, const std::string& amount,
                  const std::string& balance, const std::string& interest) {
  const std::vector<Cell> cells = {
      {kText, date}, {26, amount, kText}, {46, balance, kText}, {kValue, interest, kText}};
  int width = 0;
  for (const Cell& cell : cells) width += WidthOf({cell.text}) + 1;
  if (width <= kRightEdge - kText + 1) return Boxed(page, cells);
  Boxed(page, {cells[0], cells[1]});
  Boxed(page, {cells[2], cells[3]});
}

void WriteBody(Page& page, const Invoice& invoice, const ProgressiveResult& result,
               const LocaleFormat& locale) {
  WriteOriginalInvoice(page, invoice);
  Item(page, "Splatná dne ", ShortDateText(result.due_date, locale));
  WriteRate(page, result, locale);
  EmptyBoxed(page, 1);
  WritePayment(page, "Datum úhrady", "Výše úhrady", "Zůstatek dluhu", "Úrok z prod.");
  for (const Payment& payment : result.payments) {
    // What the payment adds to the total, so that the column adds up to the invoiced amount. Where
    // one half-year is the whole calculation, that amount is rounded and this interest is not.
    WritePayment(page, ShortDateText(payment.date, locale), CurrencyText(payment.amount, locale),
                 CurrencyText(payment.balance, locale), CurrencyText(payment.interest_sum, locale));
  }
}

void WriteAccount(Page& page, const ProgramSettings& settings) {
  EmptyBoxed(page, 2);
  const int first_line = page.LineCount();
  Boxed(page, {{kText, "Úhradu proveďte na číslo účtu "}});
  Boxed(page, {{kText, settings.Banka}});
  page.KeepTogether(first_line);
}

/// The signature and the closing texts, with so many empty lines above and below the signature.
void WriteFoot(Page& page, const ProgramSettings& settings, int above, int below) {
  constexpr int kSignature = 34;
  EmptyBoxed(page, above);
  Boxed(page, {{kText, "Fakturoval "}, {kSignature, std::string(kSignatureLength, '-')}});
  Boxed(page, {{kSignature, "Razítko a podpis"}});
  EmptyBoxed(page, below);
  for (const std::string* text : {&settings.Dovetek0, &settings.Dovetek1, &settings.Dovetek2}) {
    Boxed(page, {{kText, *text}});
  }
  EmptyBoxed(page, 2);
  Rule(page);
  page.WriteAt(kText, std::string("Faktura byla vystavena v programu Velta, kontakt ") + kHomePage);
  page.EndLine();
}

/// Writes the foot at the end of this page or, where it has no room there, of the next one.
void FillWithFoot(Page& page, const ProgramSettings& settings) {
  Page foot("");
  WriteFoot(foot, settings, 0, 0);
  int free = ui::kLinesOfPage - page.LinesOnLastPage() - foot.LineCount();
  // Without an empty line above nobody could sign.
  while (free < 1) free += ui::kLinesOfPage;
  const int below = std::clamp(free - kRoomToSign, 0, kRoomBelowSignature);
  WriteFoot(page, settings, free - below, below);
}

std::string TotalText(const SingleResult& result, const LocaleFormat& locale) {
  return CurrencyText(result.interest, locale);
}

std::string TotalText(const ProgressiveResult& result, const LocaleFormat& locale) {
  return CurrencyText(result.total, locale);
}

// The payment code, 3 cm high: from the column of the amounts almost to the edge.
constexpr int kCodeHeight = 7;

/// Whether nothing stands where the code of that line, its light border and its caption would.
bool HasRoomForCode(const std::vector<ui::PrintedLine>& lines, std::size_t code_line) {
  constexpr int kBorder = 2;   // cells on either side; above and below it is a line
  constexpr int kCaption = 3;  // where the caption begins, in cells from the code's left edge
  const std::size_t first = code_line - 1;
  const std::size_t caption = code_line + std::size_t{kCodeHeight} + 1;
  const std::size_t end = caption + 1;
  if (end > lines.size()) return false;
  for (const std::size_t page : ui::PageStarts(lines)) {
    if (first < page && page < end) return false;
  }
  for (std::size_t i = first; i < end; ++i) {
    const auto cells = Cells(lines[i].text);
    if (cells.size() != kRightEdge) return false;  // no line of the box
    const auto is_blank = [](std::string_view cell) { return cell == " "; };
    const int column = i == caption ? kValue + kCaption : kValue - kBorder;
    if (!std::all_of(cells.begin() + column - 1, cells.end() - 1, is_blank)) return false;
  }
  return true;
}

/// Puts the code beside the account, which has the lines from `account` up to `end`, or right below
/// it. It is left out where that space is taken.
void AddCode(ui::PrintedDocument& document, const std::string& payload, std::size_t account,
             std::size_t end) {
  for (std::size_t line = account + 1; line <= end + 1; ++line) {
    if (!HasRoomForCode(document.lines, line)) continue;
    document.code = {payload, "QR Platba", line, kValue, kCodeHeight};
    return;
  }
}

/// The invoiced amount as a payment code has it: "1234.50".
std::string AmountToPay(const FinishedCalculation& calculation) {
  const std::string text = InvoicedTotal(calculation, {".", "", ""});
  return text.substr(0, text.find(' '));
}

std::string DocumentName(const Invoice& invoice) {
  return invoice.number.empty() ? kDocument : kDocument + std::string(" ") + invoice.number;
}

}  // namespace

std::string InvoicedTotal(const FinishedCalculation& calculation, const LocaleFormat& locale) {
  return std::visit([&](const auto* result) { return TotalText(*result, locale); }, calculation);
}

ui::PrintedDocument InvoicePage(const Invoice& invoice, const ProgramSettings& settings,
                                const FinishedCalculation& calculation,
                                const LocaleFormat& locale) {
  Page page(DocumentName(invoice));
  WriteHead(page, invoice, settings, InvoicedTotal(calculation, locale), locale);
  std::visit([&](const auto* result) { WriteBody(page, invoice, *result, locale); }, calculation);
  const int account = page.LineCount();
  WriteAccount(page, settings);
  const int end = page.LineCount();
  FillWithFoot(page, settings);
  ui::PrintedDocument document = page.Take();
  if (const auto payload =
          PaymentCode(settings.Banka, AmountToPay(calculation), invoice.due, invoice.number)) {
    AddCode(document, *payload, static_cast<std::size_t>(account), static_cast<std::size_t>(end));
  }
  return document;
}

}  // namespace velta
