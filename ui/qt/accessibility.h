#pragma once

namespace velta::qt {

/// Says to screen readers what Qt by itself does not. Once for the application, before its windows
/// are made.
void PrepareAccessibility();

}  // namespace velta::qt
