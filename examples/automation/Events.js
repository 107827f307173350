// Listens to the one event of the library, OutOfMemory of Entry. No operation of the library raises
// it: what is shown here is how a script connects, and that it hears nothing.
//
//   cscript //nologo Events.js

var heard = 0;

function Entry_OutOfMemory() {
  ++heard;
  WScript.Echo("An entry is out of memory.");
}

var entry = WScript.CreateObject("NorvoPlayList.Entry", "Entry_");
entry.EntryType = 3;
entry.SourceURL = "http://radio.example/live";
entry.SongName = "Late Radio";
WScript.Echo(entry.SongName + ": " + entry.SourceURL);
WScript.DisconnectObject(entry);
WScript.Echo(heard + " events");
