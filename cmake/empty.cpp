// The libraries consist of their layers' objects.
