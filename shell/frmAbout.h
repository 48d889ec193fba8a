#pragma once

#include "app/form.h"

namespace velta {

/// What the program is, who uses it and where its makers are to be found.
class frmAbout final : public Form {
 public:
  explicit frmAbout(Program& program);

  ui::Frame picTop{*this, "picTop"};
  ui::Frame imgTop{*this, "imgTop"};
  ui::Label lblTop{*this, "lblTop"};
  ui::Label Label2{*this, "Label2"};  // version
  ui::Label lblUzivatel{*this, "lblUzivatel"};
  ui::Label Label3{*this, "Label3"};  // licence
  ui::Label Label5{*this, "Label5"};  // licences of others
  ui::Frame Frame5{*this, "Frame5"};
  // The links are buttons, so that the keyboard comes to them as well.
  ui::Label Label6{*this, "Label6"};
  ui::Button LblMailto{*this, "LblMailto"};
  ui::Button Label8{*this, "Label8"};
  ui::Label Label7{*this, "Label7"};
  ui::Button lblInternet{*this, "lblInternet"};
  ui::Button cmdOK{*this, "cmdOK"};

 private:
  void OnLoad() override;
};

}  // namespace velta
