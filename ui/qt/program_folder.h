#pragma once

#include "ui/program_folder.h"

namespace velta::qt {

class ProgramFolder final : public ui::ProgramFolder {
 public:
  [[nodiscard]] std::string Path() const override;
  [[nodiscard]] std::string Separator() const override { return "/"; }
  [[nodiscard]] std::string ExecutableName() const override;
};

}  // namespace velta::qt
