# Our headers open with "/// \file  What they hold." Doxygen would take the first word for a file name, so the text goes to
# a line of its own, without a change of line numbers.
s/^\/\/\/ \\file  /\/\/\/ \\file \\ilinebr /
# Names of the standard library are no links.
/^ *\/\/\//s/`std::/`%std::/g
