package tovu.local.hub;

import java.nio.file.Path;

/**
 * How a hub is to be run.
 *
 * @param listen          where it listens for federates
 * @param web             where it shows a page, or null for none
 * @param recording       the file that what crosses is recorded in, or null for none
 * @param certificate     the hub's certificate, or null for no TLS
 * @param key             the private key of that
 * @param clientCa        the authority whose certificates let federates in, or null for no such condition
 * @param insecure        whether others than this machine may connect without TLS
 * @param saves           the folder of the federations' saves, or null for what system properties say
 * @param lostAfter       seconds of silence after which a federate is lost; 0 for never
 * @param queueLimit      bytes that may wait for a federate's process to read them
 * @param connections     how many there may be at once
 * @param greatestFrame   bytes
 * @param cluster         what it is to be a part of, or null
 */
record HubSettings(Endpoint listen, Endpoint web, Path recording, Path certificate, Path key, Path clientCa,
        boolean insecure, Path saves, int lostAfter, long queueLimit, int connections, int greatestFrame,
        ClusterSettings cluster) {
}
