package tovu.local.hub;

import java.nio.file.Path;

/**
 * The cluster that a hub is to be one of.
 *
 * @param servers       those of ZooKeeper, and where in it: HOST:PORT[,HOST:PORT...][/PATH]
 * @param name          what the hub is called, or null for its address
 * @param advertised    where federates reach the hub, or null for where it listens
 * @param takeoverAfter seconds of silence after which a hub is dead for the others
 * @param ca            the authority that ZooKeeper's certificates are of, or null for connections without TLS
 * @param identity      the hub's certificate and key for that, in one file, or null for none
 * @param login         the file with USER:PASSWORD, or null for a ZooKeeper that whoever reaches it may change
 * @param saves         the folder of the federations' saves, which all hubs share, or null for none
 */
public record ClusterSettings(String servers, String name, String advertised, int takeoverAfter, Path ca,
        Path identity, Path login, Path saves) {
}
