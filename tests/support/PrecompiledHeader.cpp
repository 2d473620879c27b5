// The source of the targets whose precompiled header the tests share.
