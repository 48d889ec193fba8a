#include "shell/frmAbout.h"

#include <string>

#include "app/addresses.h"

namespace velta {

frmAbout::frmAbout(Program& program) : Form(program, "frmAbout") {
  SetClosesByEsc();
  OnClick(LblMailto, [this] { OpenMail(program_.platform, kSupportMail); });
  OnClick(Label8, [this] { OpenWeb(program_.platform, kSupportPage); });
  OnClick(lblInternet, [this] { OpenWeb(program_.platform, kHomePage); });
  OnClick(cmdOK, [this] { Close(); });

  PointerHint(LblMailto, "Zaslat E-mail na technickou podporu");
  for (ui::Button* link : {&Label8, &lblInternet}) {
    PointerHint(*link, "Klepnutím na odkaz zobrazíte naše www stránky");
  }
  PointerHint(cmdOK, "Zavřít okno O Aplikaci");
  for (ui::Frame* frame : {&picTop, &imgTop, &Frame5}) SurfaceHint(*frame);
}

void frmAbout::OnLoad() {
  const ProgramInfo& info = program_.info;
  SetCaption("O programu");
  lblTop.SetCaption(std::string(kTitle));
  Label2.SetCaption("Verze " + std::to_string(info.major) + "." + std::to_string(info.minor) + "." +
                    std::to_string(info.revision));
  lblUzivatel.SetCaption("Uživatel  " + program_.platform.user_name.Get().value_or("<neznámý>"));
  Label3.SetCaption("© 2026 autoři programu Velta. Svobodný program pod licencí MIT, bez záruky.");
  Label5.SetCaption(
      "Používá knihovny Qt (licence GNU LGPL 3), CHMLIB (GNU LGPL 2.1), CUPS (Apache 2.0) a "
      "qrcodegen (MIT).");
  Label6.SetCaption("Technická podpora");
  LblMailto.SetCaption(kSupportMail);
  Label8.SetCaption(kSupportPage);
  Label7.SetCaption("Naše www stránky");
  lblInternet.SetCaption(kHomePage);
  cmdOK.SetCaption("&OK");
  cmdOK.SetFocus();
}

}  // namespace velta
