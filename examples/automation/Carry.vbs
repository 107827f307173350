' Carries the playlists of one PC to another as neutral files, by way of a folder that both can reach.
' The songs are not carried; MediaList.txt, which comes along, names them and their new places.
'
'   cscript //nologo Carry.vbs out E:\Lists
'       on the old PC: collects the lists, and copies them there
'   cscript //nologo Carry.vbs in E:\Lists
'       on the new PC: copies them, and writes them for its players
Option Explicit

Const Collect = 0
Const Restore = 1
Const MyDocuments = 5
Const GroupRoot = "SOFTWARE\Norvo\Migration\KVS\KVMediaPlayLists\SubGroupRootName"

Dim shell, files, manager, folder
Set shell = CreateObject("WScript.Shell")
Set files = CreateObject("Scripting.FileSystemObject")
If WScript.Arguments.Count <> 2 Then Usage
folder = WScript.Arguments(1)
Set manager = CreateObject("NorvoPlayList.helperMan")
Select Case LCase(WScript.Arguments(0))
  Case "out" CarryOut
  Case "in" CarryIn
  Case Else Usage
End Select

Sub CarryOut
  Dim area
  If Not manager.GetAllPlaylists() Then Fail "The drives cannot be scanned"
  If Not manager.GenericQueue(Collect) Then Fail "No playlist with entries was found"
  area = files.BuildPath(RootFolder(), "KVs")
  CopyLists area, folder
  files.CopyFile files.BuildPath(area, "MediaList.txt"), folder & "\", True
End Sub

Sub CarryIn
  Dim documents
  documents = CreateObject("Shell.Application").NameSpace(MyDocuments).Self.Path
  CopyLists folder, files.BuildPath(documents, "Norvo PlayLists")
  If Not manager.GenericQueue(Restore) Then Fail "No playlist was restored"
  WScript.Echo "The players' lists are in " & files.BuildPath(RootFolder(), "PlayLists")
End Sub

' The neutral files of a folder.
Sub CopyLists(source, target)
  If Not files.FolderExists(source) Then Fail source & " is no folder"
  If Not files.FolderExists(target) Then files.CreateFolder target
  files.CopyFile files.BuildPath(source, "*.ini"), target & "\", True
  WScript.Echo "The neutral files are in " & target
End Sub

' The folder for lists and songs.
Function RootFolder()
  On Error Resume Next
  RootFolder = shell.RegRead("HKCU\" & GroupRoot)
  If Err.Number <> 0 Then RootFolder = shell.RegRead("HKLM\" & GroupRoot)
End Function

Sub Usage
  WScript.Echo "cscript //nologo Carry.vbs out|in FOLDER"
  WScript.Quit 2
End Sub

Sub Fail(text)
  WScript.Echo text & "."
  WScript.Quit 1
End Sub
