// placeholder, replaced by the topology tables
