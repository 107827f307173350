#include <nlohmann/json.hpp>
#include <string>

#include "cli/CommonOptions.h"
#include "cli/windows/FolderRefusal.h"

namespace norvo::cli {
namespace {

/// The command `migrate`, as far as it is refused.
class MigrateRefusal final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app = program.add_subcommand("migrate");
    app->group("");  // no group, no help
    app->set_help_flag();
    app->allow_extras();
    AddOutputOptions(*app, common);  // the refusal can be a JSON document
    return app;
  }
  Json Run(const CommonArguments&, Console&) override {
    throw CommandError(std::string("migrate: ") + kFolderRefusal + ".");
  }
};

}  // namespace

std::unique_ptr<Command> NewMigrateCommand() {
  return std::make_unique<MigrateRefusal>();
}

}  // namespace norvo::cli
