// The module as the command line wants it: where it lies, which settings it reads, what it is told.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tools/common/module_copy.h"
#include "tools/common/plugin_module.h"
#include "tools/lister/options.h"

namespace rl::tools {

/// Loads the module and holds it; unloads it and clears away a copy at the end.
class ModuleSetup {
public:
    /// `error` says in one sentence what went wrong; empty when the module is ready.
    ModuleSetup(const Options& options, bool headless, std::wstring& error);

    [[nodiscard]] const PluginModule& Module() const { return *module_; }

    /// How many message boxes the module has shown since the start; counted only when headless.
    [[nodiscard]] static int MessageBoxCount();

private:
    [[nodiscard]] std::filesystem::path PrivateCopy(const std::filesystem::path& original,
                                                    const Options& options);

    std::optional<TempFolder> folder_;  // outlives the module that was loaded from it
    std::unique_ptr<PluginModule> module_;
};

}  // namespace rl::tools
