plan(7);

var controller = made("helperMan");
equal(controller.PlayListToIni("Mix.m3u"), "Mix.ini", "the generic name of a playlist");
equal(new VBArray(controller.GetPLSList()).toArray().length, 0, "without a scan there is no list");
equal(controller.GetAllPlaylists(), true, "a scan succeeds");
var list = new VBArray(controller.GetPLSList()).toArray();
var found = 0;
for (var i = 0; i < list.length; i += 1) {
  if (list[i].indexOf("C:\\Class\\") === 0) found += 1;
}
equal(found, 5, "the playlists of a folder are listed");
equal(typeof list[0], "string", "a path is a text");
equal(controller.GenericQueue("5"), false, "an unknown mode does nothing");
raised(13, TYPE_MISMATCH, "a word is no mode", function () { controller.GenericQueue("one"); });
done();
