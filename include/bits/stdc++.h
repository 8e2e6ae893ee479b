// A habit of other libraries.
#error "plx has the C++ library of 1998, and no <bits/stdc++.h>: include the headers whose names you use"
