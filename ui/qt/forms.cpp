#include "ui/qt/forms.h"

#include <QHash>
#include <QMainWindow>

#include "ui/qt/pictures.h"
#include "ui_frmAbout.h"
#include "ui_frmFaktura.h"
#include "ui_frmHistory.h"
#include "ui_frmJednotlivy.h"
#include "ui_frmMenu.h"
#include "ui_frmNastaveni.h"
#include "ui_frmPostupny.h"
#include "ui_frmSplash.h"

namespace velta::qt {

namespace {

template <class Form, class Root = QWidget>
QWidget* Make() {
  auto* root = new Root;
  Form().setupUi(root);
  SetPictures(*root);
  return root;
}

}  // namespace

QWidget* MakeForm(const QString& name) {
  static const QHash<QString, QWidget* (*)()> kForms = {
      {"frmAbout", &Make<Ui::frmAbout>},
      {"frmFaktura", &Make<Ui::frmFaktura>},
      {"frmHistory", &Make<Ui::frmHistory>},
      {"frmJednotlivy", &Make<Ui::frmJednotlivy>},
      {"frmMenu", &Make<Ui::frmMenu, QMainWindow>},
      {"frmNastaveni", &Make<Ui::frmNastaveni>},
      {"frmPostupny", &Make<Ui::frmPostupny>},
      {"frmSplash", &Make<Ui::frmSplash>},
  };
  const auto form = kForms.find(name);
  return form == kForms.end() ? nullptr : (*form)();
}

}  // namespace velta::qt
