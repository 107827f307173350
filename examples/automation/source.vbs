' Collects the playlists of this machine: each becomes a neutral file in the folder KVs of the
' product's group root.
'
'   cscript //nologo source.vbs
Option Explicit

Const Collect = 0

Dim manager, path, found
On Error Resume Next

Set manager = CreateObject("NorvoPlayList.helperMan")
If Err.Number <> 0 Then Fail "The library is not registered (regsvr32 NorvoPlayList.dll)"

List
found = 0
For Each path In manager.GetPLSList()
  WScript.Echo path
  found = found + 1
Next
If Err.Number <> 0 Then Fail "The list of playlists cannot be read"
WScript.Echo found & " playlists found"

' Reading the list has consumed it; the queue needs a new one.
List
If manager.GenericQueue(Collect) Then
  WScript.Echo "Done: the neutral files are in the folder KVs of the group root."
Else
  WScript.Echo "No playlist with entries was found."
End If
If Err.Number <> 0 Then Fail "The playlists cannot be collected"

' Scans the drives. The library answers False, and raises nothing, when that is not possible.
Sub List
  If manager.GetAllPlaylists() Then Exit Sub
  WScript.Echo "The drives cannot be scanned. Most likely the product's settings are missing: the"
  WScript.Echo "value mode of SOFTWARE\Norvo\Migration\KVS, and SubGroupRootName of its sub-key"
  WScript.Echo "KVMediaPlayLists, in the registry of the current user or the machine."
  WScript.Quit 2
End Sub

Sub Fail(what)
  WScript.Echo what & ": error " & Err.Number & ", " & Err.Description
  WScript.Quit 1
End Sub
