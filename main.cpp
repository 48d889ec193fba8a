#include <chrono>
#include <memory>

#include "shell/velta.h"
#include "ui/qt/run.h"

int main(int argc, char** argv) {
  constexpr velta::ProgramInfo kInfo{VELTA_VERSION_MAJOR, VELTA_VERSION_MINOR,
                                     VELTA_VERSION_REVISION, std::chrono::milliseconds(400)};
  return velta::qt::Run(argc, argv, VELTA_VERSION, [&](const velta::ui::Platform& platform) {
    auto program = std::make_shared<velta::Velta>(platform, kInfo);
    program->Start();
    return program;
  });
}
