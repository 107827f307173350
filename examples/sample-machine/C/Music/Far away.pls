[playlist]
File1=C:\Music\Česká hudba\Příliš žluťoučký kůň.mp3
Title1=Příliš žluťoučký kůň
Length1=181
File2=日本の歌\さくら.mp3
Title2=さくら
Length2=183
File3=..\music\ПЕСНИ\песня о друге.mp3
Title3=Песня о друге
Length3=182
NumberOfEntries=3
Version=2
