# The first comment of a header, in C++ or in C, becomes the documentation of its file.
1 {
    s|^//\( \{0,1\}\)|/// @file\n///\1|
    s|^/\*$|/** @file|
}
2,/^$/ s|^//|///|
