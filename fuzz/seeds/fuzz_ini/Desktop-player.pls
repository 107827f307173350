[playlist]
X-GNOME-Title=Desktop player
NumberOfEntries=4
File1=Archive/Deep/er/than most folders/lost tape.mp3
Title1=Unknown - Lost Tape
File2=Musik/Klassik/Suite Nr. 1/2. Allemande.mp3
Title2=Consort - Allemande
File3=Hörspiele/Teil 1/Kapitel 01.mp3
Title3=Kapitel 1
File4=http://radio.example.com/live.mp3
Title4=Party Radio
