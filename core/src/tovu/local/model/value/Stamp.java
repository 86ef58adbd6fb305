package tovu.local.model.value;

import tovu.local.fom.OrderType;

/**
 * What a message that was sent with a time carries about it.
 *
 * @param time          when it happens
 * @param receivedOrder the order in which it is delivered
 * @param retraction    by which it may be retracted, or 0
 */
public record Stamp(LogicalTime time, OrderType receivedOrder, int retraction) {
}
