Plan 10

Dim className, thing
For Each className In Array("helperMan", "PlayList", "PlayLists", "Entries", "Entry", "AsxEntry", _
                            "M3UEntry", "PlsEntry", "ArtistList", "ArtistItem")
  Set thing = CreateObject("NorvoPlayList." & className)
  Failed 429, className & " cannot be created"
Next
Done
