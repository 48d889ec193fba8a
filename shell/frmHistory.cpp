#include "shell/frmHistory.h"

#include "app/busy_pointer.h"
#include "app/modPromenne.h"
#include "app/page.h"
#include "app/printing.h"
#include "values/file.h"
#include "values/text_encoding.h"

namespace velta {

namespace {

constexpr const char* kHistoryFile = "HISTORY.TXT";
constexpr const char* kName = "Historie verzí";

}  // namespace

frmHistory::frmHistory(Program& program) : Form(program, "frmHistory") {
  SetClosesByEsc();
  txtHistory.SetReadOnly();
  OnClick(cmdTisk, [this] { cmdTisk_Click(); });
  OnClick(cmdKonec, [this] { Close(); });
  Hint(cmdTisk, "Vytiskne historii verzí");
  Hint(cmdKonec, "Zavřít okno");
  SurfaceHint(fraHistory);
  SurfaceHint(txtHistory);
}

void frmHistory::OnLoad() {
  SetCaption(kName);
  cmdTisk.SetCaption("&Tisk");
  cmdKonec.SetCaption("&Konec");
  const BusyPointer busy(*this);
  txtHistory.SetText(
      DecodedText(ReadFile(ProgramFile(program_.platform.program_folder, kHistoryFile))));
}

void frmHistory::cmdTisk_Click() {
  Page page(kName);
  page.EmptyLines(2);
  page.WriteLines(txtHistory.text());
  PrintOnDefaultPrinter(program_.platform.printer, program_.status, page.Take());
}

}  // namespace velta
