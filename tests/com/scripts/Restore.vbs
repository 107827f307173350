' The new machine: every generic file becomes a native playlist of each player.
Plan 3

Dim controller
Set controller = Made("helperMan")
Equal controller.GenericQueue(CLng(1)), True, "the queue has worked"
Equal UBound(controller.GetPLSList), CLng(-1), "there is no list"
Equal controller.GenericQueue(0), False, "without a list nothing is collected"
Done
