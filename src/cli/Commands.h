#pragma once

#include "cli/CommandLine.h"
#include "cli/Console.h"

namespace norvo {

/// Each runs one command and gives its report as a document, which is empty unless one was asked
/// for. What is left out goes to the console. HostError when the command cannot be run.
Json RunInit(const CommonArguments& common, const InitArguments& arguments, Console& console);
Json RunScan(const CommonArguments& common, Console& console);
Json RunCollect(const CommonArguments& common, const CollectArguments& arguments, Console& console);
Json RunRestore(const CommonArguments& common, Console& console);
Json RunVerify(const CommonArguments& common, const VerifyArguments& arguments, Console& console);
Json RunMigrate(const CommonArguments& common, const MigrateArguments& arguments, Console& console);
Json RunShow(const CommonArguments& common, const ShowArguments& arguments, Console& console);

}  // namespace norvo
