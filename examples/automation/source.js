// Collects the playlists of this machine: each becomes a neutral file in the folder KVs of the
// product's group root.
//
//   cscript //nologo source.js

var COLLECT = 0;

function fail(text) {
  WScript.Echo(text);
  WScript.Quit(1);
}

function createManager() {
  try {
    return new ActiveXObject("NorvoPlayList.helperMan");
  } catch (error) {
    fail("The library is not registered (regsvr32 NorvoPlayList.dll): " + error.message);
  }
}

// Scans the drives. The library answers false, and raises nothing, when that is not possible.
function list(manager) {
  if (manager.GetAllPlaylists()) return;
  WScript.Echo(
      "The drives cannot be scanned. Most likely the product's settings are missing: the\n" +
      "value mode of SOFTWARE\\Norvo\\Migration\\KVS, and SubGroupRootName of its sub-key\n" +
      "KVMediaPlayLists, in the registry of the current user or the machine.");
  WScript.Quit(2);
}

function collect(manager) {
  list(manager);
  var paths = new VBArray(manager.GetPLSList()).toArray();
  for (var i = 0; i < paths.length; ++i) WScript.Echo(paths[i]);
  WScript.Echo(paths.length + " playlists found");

  // Reading the list has consumed it; the queue needs a new one.
  list(manager);
  var done = manager.GenericQueue(COLLECT);
  WScript.Echo(done ? "Done: the neutral files are in the folder KVs of the group root."
                    : "No playlist with entries was found.");
}

var manager = createManager();
try {
  collect(manager);
} catch (error) {
  fail("The playlists cannot be collected: error " + (error.number & 0xFFFF) + ", " +
       error.message);
}
