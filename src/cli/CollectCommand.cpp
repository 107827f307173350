#include <nlohmann/json.hpp>

#include "cli/CollectReport.h"
#include "cli/Commands.h"
#include "cli/Report.h"
#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/Scanning.h"
#include "move/Setup.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// The queue stops at a playlist that it cannot count; those behind it are never begun.
void TellUnfinished(const std::vector<ListedPlaylist>& listed,
                    const std::vector<PlaylistResult>& results, Console& console) {
  const std::string reason = ": not processed, the queue ended before: see the warning above";
  for (const PlaylistResult& result : results) {
    if (!result.outcome) {
      console.LeftOut(ToUtf8(result.path) +
                      ": not processed, and the queue ended here: it may have too many entries; "
                      "move it away and run again");
    }
  }
  for (std::size_t i = results.size(); i < listed.size(); ++i) {
    console.LeftOut(ToUtf8(listed[i].path) + reason);
  }
}

}  // namespace

Json RunCollect(const CommonArguments& common, const CollectArguments& arguments,
                Console& console) {
  Machine machine(OpenMachine(common.machine), console);
  Component& library = machine.Library();
  std::vector<SetupStep> steps;
  if (arguments.init) {
    steps = SetUp(library, {}, console);
    SaySetup(steps, console);
  }
  const Settings settings = RequireSettings(library);
  if (common.log) machine.StartLog();

  WorkWatcher watcher(console);
  const ObserverScope scope(library, watcher);
  const ObjectRef controller = library.Create(u"helperMan");
  const std::vector<ListedPlaylist> listed = Scan(machine, *controller, settings, watcher);
  RunQueue(*controller, queue_mode::kCollect);

  TellUnfinished(listed, watcher.Results(), console);
  CollectFigures figures = Count(watcher.Results(), listed.size());
  figures.mediaBytes = library.MediaBytes();
  SayCollected(figures, watcher.Results(), machine, settings, console);
  if (!console.IsJson()) return {};
  Json document = CollectedDocument(figures, watcher.Results(), machine, settings);
  AddLog(document, machine);
  if (arguments.init) document["init"] = SetupDocument(steps);
  return document;
}

}  // namespace norvo
