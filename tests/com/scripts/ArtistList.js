// JScript passes values, never variables: what comes back in them is lost.
plan(12);

var list = made("ArtistList");
list.Add("a", 1);
list.Add(5, "2");
var sought = "before";
equal(list.SearchByID("5", sought), true, "a key is found");
equal(sought, "before", "the variable is left alone");
equal(list.SearchByID("6", sought), false, "a key that is not there");
raised(13, TYPE_MISMATCH, "a word is no value", function () { list.Add("x", "word"); });
raised(94, INVALID_NULL, "null is no key", function () { list.Add(null, 1); });
raised(450, WRONG_ARGUMENTS, "a value is left out", function () { list.Add("x"); });
equal(list.Count, 2, "the number of calls that added");
equal(list.SearchByValue(99, undefined), false, "a search by value never succeeds");
raised(13, TYPE_MISMATCH, "null is no node", function () { list.SearchByValue(99, null); });
raised(13, TYPE_MISMATCH, "a literal is no node", function () { list.SearchByValue(99, {}); });

var item = made("ArtistItem");
item.mValue = {name: "literal"};
equal(item.mValue.name, "literal", "a node keeps an object of the script");
equal(item.NextItem, null, "a node without a next one");
done();
