Plan 61

Dim list, key, value, node, sought, unset
Set list = Made("ArtistList")
Equal list.Count, CLng(0), "no nodes at first"
Equal list.AllowDuplicates, False, "no duplicates at first"
Equal list.AllowOverWrite, False, "no overwriting at first"
Equal list.SearchByID("a", sought), False, "nothing is found in an empty list"
Equal sought, Empty, "the variable stays Empty"

' Adding converts its values and leaves the variables alone.
key = 5
value = "12"
list.Add key, value
Equal key, CInt(5), "a key stays as it is"
Equal value, "12", "a value stays as it is"
Equal list.SearchByID("5", sought), True, "a key is found as a text"
Equal sought, CLng(12), "its value comes back as a number"
sought = "a text"
Equal list.SearchByID(5, sought), True, "a key is found by a number"
Equal sought, CLng(12), "the variable has another type now"
sought = "a text"
Equal list.SearchByID("6", sought), False, "a key that is not there"
Equal sought, "a text", "the variable is left alone"
list.Add "word", "no number"
Raised 13, "a word is no value"
list.Add "huge", 3E9
Raised 6, "a value of more than 32 bits"
list.Add Null, 1
Raised 94, "Null is no key"
list.Add "null", Null
Raised 94, "Null is no value"
list.Add list, 1
Raised 13, "an object is no key"
Equal list.Count, CLng(1), "what raised was not counted"
list.Add , 1
Raised 13, "a key is missing"
list.Add "a"
Raised 450, "a value is left out"
list.Add "a", 1, 2
Raised 450, "a value too many"

' Keys that are there already.
list.Add "5", 13
Equal list.Count, CLng(2), "a key that is there is counted"
list.SearchByID "5", sought
Equal sought, CLng(12), "its value is the old one"
list.AllowOverWrite = "True"
Equal list.AllowOverWrite, True, "overwriting out of a text"
list.Add "5", 13
list.SearchByID "5", sought
Equal sought, CLng(13), "its value is the new one"
list.AllowDuplicates = 1
Equal list.AllowDuplicates, True, "duplicates out of a number"
list.Add "5", 14
list.SearchByID "5", sought
Equal sought, CLng(14), "a duplicate goes in front"
list.Add ManyScripts(), 15
Equal list.SearchByID(ManyScripts(), sought), True, "a key in many scripts"
list.AllowDuplicates = "perhaps"
Raised 13, "a word is no boolean"

' The walk goes from the head, which has the greatest key, to a value below the one sought.
Set list = Made("ArtistList")
list.Add "a", 1
list.Add "c", 30
list.Add "b", 20
value = "10"
Equal list.SearchByValue(value, node), False, "a search by value never succeeds"
Equal value, "10", "the value is left alone"
Equal node.KeyID, "a", "the first node with a smaller value"
Equal node.PreviousItem.KeyID, "b", "the node before it"
Equal node.PreviousItem.PreviousItem.Value, CLng(30), "the head"
Same node.PreviousItem.PreviousItem.PreviousItem, Nothing, "nothing before the head"
Same node.PreviousItem.NextItem, node, "the same node from the other side"
Equal list.SearchByValue(0.5, node), False, "a value below all"
Same node, Nothing, "the walk comes to the end"
Equal list.SearchByValue(0.5, unset), False, "a value below all, with a variable that is empty"
Same unset, Nothing, "it holds no object then"
Equal list.SearchByValue(99, node), False, "a value above all"
Equal node.KeyID, "c", "the walk stays at the head"
value = list.SearchByValue("x", node)
Raised 13, "a word is no value to search for"
Equal node.KeyID, "c", "the variable is left alone"
value = list.SearchByValue(Null, node)
Raised 94, "Null is no value to search for"
node = 3
value = list.SearchByValue(99, node)
Raised 13, "the variable must be able to hold a node"
Equal node, CInt(3), "a variable that does not is left alone"
list.SearchByValue 10, node
value = list.SearchByValue(10)
Raised 450, "a variable is left out"

' A list that goes takes its nodes apart.
Set node = Nothing
list.SearchByValue 10, node
Set list = Nothing
Equal node.KeyID, "a", "a node outlives its list"
Same node.PreviousItem, Nothing, "it has no previous node any more"

Set list = Made("ArtistList")
list.Add "a", 1
list.Remove "a"
Quiet "removing does nothing"
Equal list.SearchByID("a", sought), True, "the key is still there"
Equal list.GetFirst, Empty, "no first value"
Equal list.GetNext, Empty, "no next value"
Equal list.GetPrevious, Empty, "no previous value"
Equal list.GetLast, Empty, "no last value"
list.Remove
Raised 450, "a key is left out"
list.Count = 3
Refused "the count is read only"
list.Nowhere
Refused "a member that is not there"
Equal list.COUNT, CLng(1), "a name in another case"
Done
