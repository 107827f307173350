Plan 44

Dim ended
ended = 0
Class Thing
  Private Sub Class_Terminate
    ended = ended + 1
  End Sub
End Class

Dim item, following, thing1, value
Set item = Made("ArtistItem")
Set following = Made("ArtistItem")
Set thing1 = New Thing

Equal item.mValue, Empty, "stored value at first"
Equal item.mKeyID, Empty, "stored key at first"
Same item.mNextItem, Nothing, "next node's field at first"
Same item.mPreviousItem, Nothing, "previous node's field at first"
Equal item.Value, CLng(0), "value at first"
Equal item.KeyID, "", "key at first"
Same item.NextItem, Nothing, "next node at first"
Same item.PreviousItem, Nothing, "previous node at first"

' The plain fields take anything, and the typed members read it.
item.mValue = "12"
Equal item.mValue, "12", "a stored text"
Equal item.Value, CLng(12), "a stored text as a number"
item.mValue = "twelve"
value = item.Value
Raised 13, "a stored word is no number"
item.mValue = 3E9
value = item.Value
Raised 6, "a stored number of more than 32 bits"
item.mValue = Null
Equal item.mValue, Null, "a stored Null"
value = item.Value
Raised 94, "a stored Null is no number"
Set item.mValue = thing1
Same item.mValue, thing1, "a stored object of the script"
Set thing1 = Nothing
Equal ended, CInt(0), "a node keeps its object"
Set item.mValue = following
Equal ended, CInt(1), "and lets go of it with another value"
Set thing1 = New Thing
Same item.mValue, following, "a stored object of the library"
value = item.Value
Raised 13, "a stored object is no number"
item.mKeyID = 5
Equal item.mKeyID, CInt(5), "a stored key keeps its type"
Equal item.KeyID, "5", "a stored key as a text"
item.mKeyID = Null
value = item.KeyID
Raised 94, "a stored Null is no key"
Set item.mKeyID = thing1
Same item.mKeyID, thing1, "a stored object as a key"

' The typed members store what they have converted.
value = "7"
item.Value = value
Equal item.mValue, CLng(7), "a value is stored as a number"
Equal value, "7", "the variable is left alone"
item.Value = 2.5
Equal item.Value, CLng(2), "a half is rounded to the even number"
item.Value = "x"
Raised 13, "a word is no value"
item.Value = Null
Raised 94, "Null is no value"
item.KeyID = 5
Equal item.mKeyID, "5", "a key is stored as a text"
item.KeyID = ManyScripts()
Equal item.mKeyID, ManyScripts(), "a key in many scripts"
item.KeyID = Null
Raised 94, "Null is no key"

' The links share their storage too.
Set item.NextItem = following
Same item.mNextItem, following, "a next node"
Set item.mPreviousItem = following
Same item.PreviousItem, following, "a previous node"
Same following.PreviousItem, Nothing, "the other side is not linked"
Set item.mNextItem = Nothing
Same item.NextItem, Nothing, "a link is taken back"
Set item.PreviousItem = item
Same item.PreviousItem.PreviousItem, item, "a node linked to itself"
Set item.PreviousItem = Nothing
Set item.NextItem = thing1
Raised 13, "an object of the script is no node"
Set item.mPreviousItem = Made("ArtistList")
Raised 13, "a list is no node"
item.NextItem = 3
Raised 13, "a number is no node"
Set item.NextItem = Made("ArtistItem")
item.NextItem.KeyID = "kept"
Equal item.NextItem.KeyID, "kept", "a node that nobody else holds is kept"

' An object that looks at its node while it ends.
Dim seen
Class LookingThing
  Private Sub Class_Terminate
    seen = item.mValue
  End Sub
End Class
Set item.mValue = New LookingThing
item.mValue = "new"
Equal seen, "new", "an object that ends sees the value that replaced it"

Equal item.NEXTITEM.keyid, "kept", "names in another case"
value = item.Nowhere
Refused "a member that is not there"
value = item.Value(1)
Raised 450, "a property with an argument too many"
Done
