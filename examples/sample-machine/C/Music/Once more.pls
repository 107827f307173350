[playlist]
File1=Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3
Title1=Blue Quarter & Friends - After Hours
Length1=288
NumberOfEntries=1
Version=2
