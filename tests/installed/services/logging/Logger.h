// A user's program may have headers of the same path as ours; ./check puts this folder on the path of one.
#error "an installed header includes another by a path that a program's own header can take"
