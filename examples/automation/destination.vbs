' Restores the playlists of this machine: each neutral file below the user's documents becomes native
' playlists of all players, which are then pointed at them.
'
'   cscript //nologo destination.vbs
Option Explicit

Const Restore = 1

Dim manager
On Error Resume Next

Set manager = CreateObject("NorvoPlayList.helperMan")
If Err.Number <> 0 Then Fail "The library is not registered (regsvr32 NorvoPlayList.dll)"

If manager.GenericQueue(Restore) Then
  WScript.Echo "Done: the neutral files are native playlists below the group root now."
Else
  WScript.Echo "No neutral file was found in the user's documents."
End If
If Err.Number <> 0 Then Fail "The playlists cannot be restored"

Sub Fail(what)
  WScript.Echo what & ": error " & Err.Number & ", " & Err.Description
  WScript.Quit 1
End Sub
