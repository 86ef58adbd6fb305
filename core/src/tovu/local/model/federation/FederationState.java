package tovu.local.model.federation;

import tovu.local.model.exchange.ExchangeState;
import tovu.local.model.synchronization.SynchronizationPoints;
import tovu.local.model.value.Saved;

/** All of a federation that a save keeps and a restore brings back. */
record FederationState(ExchangeState exchange, SynchronizationPoints synchronizationPoints) implements Saved {
}
