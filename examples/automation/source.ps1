# Collects the playlists of this machine: each becomes a neutral file in the folder KVs of the
# product's group root.
#
#   powershell -ExecutionPolicy Bypass -File source.ps1

$ErrorActionPreference = 'Stop'
$collect = 0

# Scans the drives. The library answers False, and raises nothing, when that is not possible.
function Update-List($manager) {
    if ($manager.GetAllPlaylists()) { return }
    Write-Output 'The drives cannot be scanned. Most likely the product''s settings are missing: the'
    Write-Output 'value mode of SOFTWARE\Norvo\Migration\KVS, and SubGroupRootName of its sub-key'
    Write-Output 'KVMediaPlayLists, in the registry of the current user or the machine.'
    exit 2
}

try {
    $manager = New-Object -ComObject NorvoPlayList.helperMan
} catch {
    Write-Output "The library is not registered (regsvr32 NorvoPlayList.dll): $_"
    exit 1
}

try {
    Update-List $manager
    $paths = @($manager.GetPLSList())
    $paths
    "$($paths.Count) playlists found"

    # Reading the list has consumed it; the queue needs a new one.
    Update-List $manager
    if ($manager.GenericQueue($collect)) {
        'Done: the neutral files are in the folder KVs of the group root.'
    } else {
        'No playlist with entries was found.'
    }
} catch {
    Write-Output "The playlists cannot be collected: $_"
    exit 1
}
