package tovu.local.trace;

import tovu.local.model.value.TimeFamily;

/** What handles stand for, each null where nothing is known of it. */
public interface Names {
    String objectClass(int handle);

    String interactionClass(int handle);

    String object(int handle);

    String attribute(int handle);

    String parameter(int handle);

    String dimension(int handle);

    String federate(int handle);

    TimeFamily timeFamily();
}
