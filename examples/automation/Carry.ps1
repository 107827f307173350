# Carries the playlists of one PC to another as neutral files, by way of a folder that both can reach.
# The songs are not carried; MediaList.txt, which comes along, names them and their new places.
#
#   powershell -ExecutionPolicy Bypass -File Carry.ps1 out E:\Lists
#       on the old PC: collects the lists, and copies them there
#   powershell -ExecutionPolicy Bypass -File Carry.ps1 in E:\Lists
#       on the new PC: copies them, and writes them for its players

param(
    [Parameter(Mandatory = $true)][ValidateSet('out', 'in')][string] $Direction,
    [Parameter(Mandatory = $true)][string] $Folder
)
$ErrorActionPreference = 'Stop'
$collect = 0
$restore = 1

# The folder for lists and songs.
function Get-RootFolder {
    foreach ($hive in 'HKCU:', 'HKLM:') {
        $key = "$hive\SOFTWARE\Norvo\Migration\KVS\KVMediaPlayLists"
        if (Test-Path $key) { return (Get-ItemProperty $key).SubGroupRootName }
    }
    throw 'The product''s settings are missing'
}

# The neutral files of a folder.
function Copy-List($source, $target) {
    New-Item -ItemType Directory -Force -Path $target | Out-Null
    Copy-Item -Path (Join-Path $source '*.ini') -Destination $target -Force
    "The neutral files are in $target"
}

$manager = New-Object -ComObject NorvoPlayList.helperMan
if ($Direction -eq 'out') {
    if (-not $manager.GetAllPlaylists()) { throw 'The drives cannot be scanned' }
    if (-not $manager.GenericQueue($collect)) { throw 'No playlist with entries was found' }
    $area = Join-Path (Get-RootFolder) 'KVs'
    Copy-List $area $Folder
    Copy-Item -Path (Join-Path $area 'MediaList.txt') -Destination $Folder -Force
} else {
    $documents = [Environment]::GetFolderPath('MyDocuments')
    Copy-List $Folder (Join-Path $documents 'Norvo PlayLists')
    if (-not $manager.GenericQueue($restore)) { throw 'No playlist was restored' }
    "The players' lists are in $(Join-Path (Get-RootFolder) 'PlayLists')"
}
