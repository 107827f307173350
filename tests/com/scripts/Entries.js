plan(23);

function Song(kind, name) {
  this.Entry_EntryType = kind;
  this.Name = name;
}

var entries = made("Entries");
equal(entries.Item(1), null, "nothing in an empty collection");

var literal = {Entry_EntryType: 0, Name: "literal", extra: {deep: [1, 2]}};
var song = new Song("0", "song");
entries.Add(literal);
entries.Add(song);
equal(entries.Count, 2, "objects of the script are taken");
equal(entries.Item(1), literal, "the very same literal comes back");
equal(entries.Item(2), song, "the very same object comes back");
equal(entries.Item("1").extra.deep[1], 2, "with all that it holds");
equal(entries.Item(2) instanceof Song, true, "with its constructor");
entries.Item(1).Name = "renamed";
equal(literal.Name, "renamed", "a value set through the collection is the object's");

entries.Add(new Song(1, "other"));
entries.Add({Name: "without a type"});
entries.Add(null === undefined ? song : undefined);
entries.Add({Entry_EntryType: function () { return 0; }});
equal(entries.TotalSongs, 2, "another type, none, nothing and a function are dropped");
raised(13, TYPE_MISMATCH, "null is no entry", function () { entries.Add(null); });
raised(13, TYPE_MISMATCH, "a number is no entry", function () { entries.Add(1); });
raised(450, WRONG_ARGUMENTS, "an entry is left out", function () { entries.Add(); });
raised(5, INVALID_CALL, "position 0", function () { entries.Item(0); });
raised(450, WRONG_ARGUMENTS, "a position is left out", function () { entries.Item(); });

entries.Add(made("M3UEntry"));
equal(entries.Count, 3, "an entry of the library is taken");
equal(entries.Item(3).Entry_SongName, "", "and asked for its members");

var names = "";
for (var i = 1; i <= 2; i += 1) {
  names += entries.Item(i).Name + ";";
}
equal(names, "renamed;song;", "a loop over the objects of the script");

equal(entries.Remove("s*"), false, "the result is always false");
equal(entries.Count, 2, "the object that matches is removed");
raised(438, NO_SUCH_MEMBER, "an entry of the library has no name",
       function () { entries.Remove("nobody"); });

// Prototypes count as the object's own.
function Derived() {}
Derived.prototype = literal;
var derived = new Derived();
entries.Add(derived);
equal(entries.Item(3), derived, "a type that the prototype holds");

entries.CollectionType = "4";
equal(entries.CollectionType, 4, "a type out of a text");
entries.Add(new Song(4, "four"));
equal(entries.Item(4).Name, "four", "an object that nobody else holds is kept");
entries = null;
CollectGarbage();
equal(literal.Name, "renamed", "an object outlives its collection");
done();
