plan(16);

var lists = made("PlayLists");
var disc = {TotalSongs: "12", Name: "disc"};
lists.Add(disc);
equal(lists.Item(1), disc, "the very same object comes back");
equal(lists.TotalSongs, 12, "its songs are counted");
disc.TotalSongs = 100;
equal(lists.TotalSongs, 12, "a later change does not count");
lists.Add({TotalSongs: 2.6});
equal(lists.TotalSongs, 15, "a total is rounded");
raised(438, NO_SUCH_MEMBER, "an object without songs", function () { lists.Add({}); });
equal(lists.Count, 3, "it was added all the same");
raised(13, TYPE_MISMATCH, "a word is no number of songs",
       function () { lists.Add({TotalSongs: "many"}); });
raised(94, INVALID_NULL, "null is no number of songs",
       function () { lists.Add({TotalSongs: null}); });
raised(6, OVERFLOW, "a total of more than 32 bits",
       function () { lists.Add({TotalSongs: 2147483647}); });
lists.Add(made("PlayList"));
equal(lists.TotalPlayLists, 7, "a playlist of the library");
equal(lists.Item(7).PlayListEntries.Count, 0, "with its entries");
equal(lists.Item(8), null, "nothing past the end, after a message box");
raised(5, INVALID_CALL, "position 0", function () { lists.Item(0); });
equal(lists.Remove("d?sc"), false, "the result is always false");
equal(lists.Count, 6, "the object that matches is removed");
raised(438, NO_SUCH_MEMBER, "an object without a name", function () { lists.Remove("x"); });
done();
