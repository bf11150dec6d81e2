# Prints a member of the JSON object in the variable JSON; MEMBER is its path, such as "reply;payload".
string(JSON value GET "$ENV{JSON}" $ENV{MEMBER})
message(NOTICE "${value}")
