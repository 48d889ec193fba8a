#pragma once

#include <QPushButton>

namespace velta::qt {

/// A flat button that looks like a link, in the colour that the desktop's palette has for links.
class LinkButton final : public QPushButton {
  Q_OBJECT

 public:
  explicit LinkButton(QWidget* parent = nullptr);

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;
};

}  // namespace velta::qt
