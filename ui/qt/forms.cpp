#include "ui/qt/forms.h"

#include <QHash>
#include <QMainWindow>

#include "ui_frmJednotlivy.h"
#include "ui_frmMenu.h"
#include "ui_frmPostupny.h"
#include "ui_frmSplash.h"

namespace velta::qt {

namespace {

template <class Form, class Root = QWidget>
QWidget* Make() {
  auto* root = new Root;
  Form().setupUi(root);
  return root;
}

}  // namespace

QWidget* MakeForm(const QString& name) {
  static const QHash<QString, QWidget* (*)()> kForms = {
      {"frmJednotlivy", &Make<Ui::frmJednotlivy>},
      {"frmMenu", &Make<Ui::frmMenu, QMainWindow>},
      {"frmPostupny", &Make<Ui::frmPostupny>},
      {"frmSplash", &Make<Ui::frmSplash>},
  };
  const auto form = kForms.find(name);
  return form == kForms.end() ? nullptr : (*form)();
}

}  // namespace velta::qt
