"""What songs, playlists and machines made for trying things out have in common. Which songs, which
playlists and which oddities a machine has is told where it is made."""
