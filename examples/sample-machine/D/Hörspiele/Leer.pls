[playlist]
NumberOfEntries=0
