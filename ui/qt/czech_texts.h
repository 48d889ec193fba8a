#pragma once

#include <QTranslator>

namespace velta::qt {

/// Czech words for those few texts of Qt's own dialogs that Qt's translation leaves in English.
class CzechTexts final : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int count) const override;
};

}  // namespace velta::qt
